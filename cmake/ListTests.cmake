# Writes each test of a program down for CTest. Run whenever the program has been built, by the script
# that cmake/TestProgram.cmake makes: it says where what is, and which suites need what.

cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${CMAKE_COMMAND} -E env ${ENVIRONMENT} ${PROGRAM} --gtest_list_tests
                OUTPUT_VARIABLE listing RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} --gtest_list_tests failed: ${result}")
endif()

# A line is a suite, with a point at its end, or one of its tests, indented. Comments are the values of
# parameters.
string(REGEX REPLACE " +#[^\n]*" "" listing "${listing}")
string(STRIP "${listing}" listing)
string(REPLACE "\n" ";" lines "${listing}")

set(script)
foreach(line IN LISTS lines)
  if(line MATCHES "^([^ ]+)\\.$")
    set(suite ${CMAKE_MATCH_1})
    string(REGEX REPLACE "^.*/" "" name ${suite})  # before it: what its parameters are called
    set(labels ${LABELS})
    foreach(need VIEWS GUI PRINTING SLOW)
      if(name IN_LIST ${need} OR "ALL" IN_LIST ${need})
        string(TOLOWER ${need} label)
        list(APPEND labels ${label})
      endif()
    endforeach()
    if(NOT labels)
      set(labels fast)
    endif()

    set(command ${WITHOUT_DISPLAY})
    set(schedule)
    if(gui IN_LIST labels)
      set(command ${ON_SCREEN})
      # One window has the focus, and there is one mouse. This takes longest, and so begins first.
      set(schedule " RESOURCE_LOCK screen COST 60")
    elseif(views IN_LIST labels)
      set(command ${WITH_VIEWS})
    endif()
    list(JOIN command " " command)
  elseif(line MATCHES "^  ([^ ]+)$")
    set(test ${suite}.${CMAKE_MATCH_1})
    string(APPEND script
      "add_test(${FOLDER}/${test} ${command} ${PROGRAM} --gtest_filter=${test})\n"
      "set_tests_properties(${FOLDER}/${test} PROPERTIES LABELS \"${labels}\"${schedule}"
      " TIMEOUT ${TIME_LIMIT} SKIP_REGULAR_EXPRESSION \"\\\\[  SKIPPED \\\\]\""
      " ENVIRONMENT \"${ENVIRONMENT}\" ENVIRONMENT_MODIFICATION \"${WITHOUT}\")\n")
  else()
    message(FATAL_ERROR "${PROGRAM} lists what is no test: ${line}")
  endif()
endforeach()
file(WRITE ${SCRIPT} "${script}")
