set(SANITIZE "" CACHE STRING "Sanitizers to build with: address,undefined or thread; empty: none")

# For every run of a program that was built here: by a test, by the build itself.
set(SANITIZER_ENVIRONMENT)
if(SANITIZE)
  set(suppressions suppressions=${PROJECT_SOURCE_DIR}/tests/support)
  # Frame pointers alone do not lead through the platform's libraries. Children that have been forked to
  # give up rights begin threads.
  set(SANITIZER_ENVIRONMENT
      ASAN_OPTIONS=fast_unwind_on_malloc=0
      LSAN_OPTIONS=${suppressions}/leaks.supp:print_suppressions=0
      TSAN_OPTIONS=${suppressions}/races.supp:die_after_fork=0)
  add_compile_options(-fsanitize=${SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${SANITIZE})
endif()

option(FUZZ "Count what input reaches, and build the programs of tests/fuzz that look for more" OFF)

if(FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
