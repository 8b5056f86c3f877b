# What is installed is the same wherever it has been built: no path of the sources or the build gets
# into it. Include it before any target is made.

# Run paths lead from the file itself to its libraries.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# What the compiler writes down of its own accord. Debuggers of the other configurations want the paths.
add_compile_options($<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
                    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=./build>)

# For GNUstep's runtime it writes the name of each Objective-C source into the object, as it was given,
# with that of the folder, as it was met first, and has no option against it.
if(NOT APPLE)
  list(PREPEND CMAKE_OBJCXX_COMPILER_LAUNCHER
       ${CMAKE_CURRENT_LIST_DIR}/with-relative-names ${PROJECT_SOURCE_DIR})
endif()
