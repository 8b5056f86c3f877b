# What is installed is the same wherever it has been built: no path of the sources or the build gets
# into it. Include it before any target is made.

# Run paths lead from the file itself to its libraries.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# What the compiler writes down of its own accord. Debuggers of the other configurations want the paths.
add_compile_options($<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
                    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=./build>)

# For GNUstep's runtime it writes the name of each Objective-C source into the object, as it was given,
# with that of the folder, as it was met first, and has no option against it. Nor has it one for debugging
# information, where a function that is made for a lambda is called after the lambda's place: that is of
# matter to those who map paths in it, as Debian's tools do.
if(NOT APPLE)
  set(launcher ${CMAKE_CURRENT_LIST_DIR}/with-relative-names ${PROJECT_SOURCE_DIR})
  list(PREPEND CMAKE_OBJCXX_COMPILER_LAUNCHER ${launcher})
  if(CMAKE_CXX_FLAGS MATCHES "-f(file|debug)-prefix-map=")
    list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
  endif()
endif()
