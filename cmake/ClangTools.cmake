# The tools of clang and LLVM. The versions that are known to work are named here and nowhere else.
#
#   find_clang_tool(<variable> <name> [VERSION <major>])
#
# finds clang++, clang-tidy, llvm-cov, ld.lld or whatever else comes with them, and caches where it is: the
# tool of that name if its version is among them, or the newest that has its version in its name, as in
# clang++-14. Where there is neither, another version does: a newer compiler must not stop a build.
# With VERSION only that one does, for tools that read what the compiler has written.
#
# It needs no project. Scripts ask with
#
#   cmake -D TOOL=clang-format [-D VERSION=<major>] -P cmake/ClangTools.cmake
#
# which writes where the tool is.

set(OLDEST_CLANG 14)
set(NEWEST_CLANG 19)

# The major version of a tool, 0 if it tells none. Those few that do not know --version are in a folder of
# their version, behind a link.
function(clang_tool_version result program)
  execute_process(COMMAND ${program} --version OUTPUT_VARIABLE output ERROR_VARIABLE output)
  file(REAL_PATH ${program} path)
  set(version 0)
  if(output MATCHES "(version|LLD) ([0-9]+)\\.")
    set(version ${CMAKE_MATCH_2})
  elseif(path MATCHES "/llvm-([0-9]+)/")
    set(version ${CMAKE_MATCH_1})
  endif()
  set(${result} ${version} PARENT_SCOPE)
endfunction()

# For find_program, in find_clang_tool.
function(is_wanted_clang_tool result program)
  clang_tool_version(version ${program})
  if(version LESS oldest OR version GREATER newest)
    set(${result} FALSE PARENT_SCOPE)
  endif()
endfunction()

function(find_clang_tool variable name)
  cmake_parse_arguments(PARSE_ARGV 2 ARG "" VERSION "")
  if(${variable})
    return()
  endif()
  set(oldest ${OLDEST_CLANG})
  set(newest ${NEWEST_CLANG})
  if(ARG_VERSION)
    set(oldest ${ARG_VERSION})
    set(newest ${ARG_VERSION})
  endif()
  set(names ${name})
  foreach(version RANGE ${newest} ${oldest} -1)
    list(APPEND names ${name}-${version})
  endforeach()
  find_program(${variable} NAMES ${names} VALIDATOR is_wanted_clang_tool)
  if(${variable})
    return()
  endif()

  if(ARG_VERSION)
    message(FATAL_ERROR "There is no ${name} of version ${ARG_VERSION}")
  endif()
  find_program(${variable} ${name})
  if(NOT ${variable})
    message(FATAL_ERROR "There is no ${name}; versions ${oldest} to ${newest} are known to work")
  endif()
  set(mode STATUS)
  if(CMAKE_SCRIPT_MODE_FILE)
    set(mode NOTICE)  # standard output has the answer
  endif()
  clang_tool_version(version ${${variable}})
  message(${mode} "${${variable}} has version ${version}; trying it, ${oldest} to ${newest} are known to work")
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  find_clang_tool(program ${TOOL} VERSION ${VERSION})
  execute_process(COMMAND ${CMAKE_COMMAND} -E echo ${program})
endif()
