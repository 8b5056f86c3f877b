# Names for the workflows of CMakePresets.json and the scripts; all work is done there.

.DEFAULT_GOAL := help
.PHONY: help demo test build fmt lint asan macos-check clean

help: ## this list
	@sed -n 's/^\([a-z-]*\):.*## /  make \1\t/p' $(MAKEFILE_LIST) | expand -t 16

demo: ## build, show the panel on a sample printer, print what was chosen
	@scripts/demo

test: ## build and run all tests
	@scripts/test

build: ## build only, into build/dev
	@scripts/build

fmt: ## format all sources
	@scripts/format

lint: ## check formatting and run the static analyzer
	@scripts/lint

asan: ## all tests under the address and undefined-behaviour sanitizers, with leak checking
	@scripts/test asan

macos-check: ## build and check the bundle for the real platform: make macos-check SDK=FOLDER
	@scripts/macos-check "$(SDK)"

clean: ## remove everything that was built
	@rm -rf build
