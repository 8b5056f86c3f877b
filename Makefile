# Names for the workflows of CMakePresets.json and the scripts; all work is done there.

.DEFAULT_GOAL := help
.PHONY: help demo test build fmt lint asan tsan coverage fuzz macos-check sweep soak bench packages packages-test systems-test clean

help: ## this list
	@sed -n 's/^\([a-z-]*\):.*## /  make \1\t/p' $(MAKEFILE_LIST) | expand -t 24

demo: ## build, show the panel on a sample printer, print what was chosen
	@scripts/demo

test: ## build and run all tests
	@scripts/test

build: ## build only, into build/dev
	@scripts/build

fmt: ## format all sources
	@scripts/format

lint: ## check formatting, spelling and scripts, and run the static analyzer
	@scripts/lint

asan: ## all tests under the address and undefined-behavior sanitizers, with leak checking
	@scripts/test asan

tsan: ## the tests of pdeprint under the thread sanitizer
	@scripts/test tsan

coverage: ## all tests, and how much of each folder's sources they reach
	@scripts/coverage

fuzz: ## arbitrary input for a while, under the sanitizers: make fuzz SECONDS=60
	@scripts/fuzz $(SECONDS)

macos-check: ## build and check the bundle for macOS: make macos-check SDK=FOLDER
	@scripts/macos-check "$(SDK)"

sweep: ## pdeprint check on some 3,850 PPD files of generic drivers
	@scripts/sweep-ppds

soak: ## a thousand changes of the queue and openings of the dialog: make soak ROUNDS=1000
	@scripts/soak $(ROUNDS)

bench: ## measure, and print a table beside the bare platform and other print dialogs
	@scripts/bench $(ROUNDS)

packages: ## make the packages, in build/packages
	@scripts/packages

packages-test: ## make the packages, and try them on a clean Debian system (as root)
	@scripts/packages-test

systems-test: ## demo, tests and packages on bare Debian systems (as root): make systems-test ONLY="trixie demo"
	@scripts/systems-test $(ONLY)

clean: ## remove everything that was built
	@rm -rf build
