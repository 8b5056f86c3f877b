option(SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

# For every run of a program that was built here: by a test, by the build itself.
set(SANITIZER_ENVIRONMENT)
if(SANITIZE)
  # Frame pointers alone do not lead through the platform's libraries.
  set(SANITIZER_ENVIRONMENT
      ASAN_OPTIONS=fast_unwind_on_malloc=0
      LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

option(FUZZ "Count what input reaches, and build the programs of tests/fuzz that look for more" OFF)

if(FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
