# Programs of tests, each of whose tests is one of CTest's.

# Seconds that a test may take; sanitizers take several times as long.
set(TEST_TIME_LIMIT 300)
if(SANITIZE)
  set(TEST_TIME_LIMIT 1800)
endif()

# add_test_program(<name> SOURCES <files> [LIBRARIES <targets>] [DEPENDS <targets>] [LABELS <labels>]
#                  [VIEWS <suites>|ALL] [GUI <suites>|ALL] [PRINTING <suites>|ALL] [SLOW <suites>|ALL])
#
# The tests are called FOLDER/SUITE.TEST. What their suites need is said by the suites' names, and labels
# them: VIEWS, the application object, and so a display where the platform takes one; GUI, a screen on
# which nothing else happens, keys and the mouse; PRINTING, a print server; SLOW, time. Tests that need
# nothing are labeled fast, unless all have another label.
function(add_test_program name)
  set(needs VIEWS GUI PRINTING SLOW)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES;DEPENDS;LABELS;${needs}" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
                                           ENABLE_EXPORTS ON)
  target_link_libraries(${name} PRIVATE test_support ${ARG_LIBRARIES})
  if(ARG_DEPENDS)
    add_dependencies(${name} ${ARG_DEPENDS})
  endif()
  if(CMAKE_CROSSCOMPILING)  # nothing is run
    return()
  endif()

  set(environment LANGUAGE=en LANG=C.UTF-8 ${SANITIZER_ENVIRONMENT})
  if(APPLE)
    # GoogleTest is installed for the machine's own processor.
    set_target_properties(${name} PROPERTIES OSX_ARCHITECTURES ${CMAKE_HOST_SYSTEM_PROCESSOR})
    set(commands)
  else()
    set(shared_display ${PROJECT_SOURCE_DIR}/scripts/lib/on-shared-display)
    # What ends ctest ends its tests, too.
    set(commands "set(WITHOUT_DISPLAY setpriv --pdeathsig TERM)
set(WITH_VIEWS ${shared_display} views)
set(ON_SCREEN ${shared_display} screen)")
  endif()
  foreach(need IN LISTS needs)
    string(APPEND commands "\nset(${need} ${ARG_${need}})")
  endforeach()
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${name}.tests.cmake)
  set(list_tests ${CMAKE_CURRENT_BINARY_DIR}/${name}.list.cmake)
  file(GENERATE OUTPUT ${list_tests} CONTENT "${commands}
set(PROGRAM $<TARGET_FILE:${name}>)
set(FOLDER ${folder})
set(LABELS ${ARG_LABELS})
set(TIME_LIMIT ${TEST_TIME_LIMIT})
set(ENVIRONMENT \"${environment}\")
set(WITHOUT DISPLAY=unset: LC_ALL=unset: LC_MESSAGES=unset: LC_CTYPE=unset:)
set(SCRIPT ${script})
include(${PROJECT_SOURCE_DIR}/cmake/ListTests.cmake)
")
  # The list is as old as the program.
  set_property(TARGET ${name} APPEND PROPERTY
               LINK_DEPENDS ${list_tests} ${PROJECT_SOURCE_DIR}/cmake/ListTests.cmake)
  add_custom_command(TARGET ${name} POST_BUILD COMMAND ${CMAKE_COMMAND} -P ${list_tests}
                     BYPRODUCTS ${script} VERBATIM)

  # Without the program there is a test that cannot be found.
  set(include ${CMAKE_CURRENT_BINARY_DIR}/${name}.include.cmake)
  file(WRITE ${include} "if(EXISTS ${script})
  include(${script})
else()
  add_test(${folder}/${name}_NOT_BUILT ${name}_NOT_BUILT)
endif()
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include})
endfunction()
