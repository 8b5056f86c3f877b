option(COVERAGE "Count how often each place of the sources is reached; see scripts/coverage" OFF)

# The program's own name for the file of its counts: tests run programs with an environment of theirs.
if(COVERAGE)
  set(counts -fprofile-instr-generate=${PROJECT_BINARY_DIR}/counts/%m.profraw)
  add_compile_options(${counts} -fcoverage-mapping)
  add_link_options(${counts})
endif()
