# CMake takes the linking flags of Objective-C++ from Objective-C, a language that this project does
# not enable; without them libraries get no soname and nothing gets a run path. Take those of C++.
foreach(flag SHARED_LIBRARY_SONAME_@_FLAG SHARED_LIBRARY_RUNTIME_@_FLAG
             SHARED_LIBRARY_RUNTIME_@_FLAG_SEP SHARED_LIBRARY_RPATH_LINK_@_FLAG
             EXECUTABLE_RUNTIME_@_FLAG EXECUTABLE_RUNTIME_@_FLAG_SEP
             EXECUTABLE_RPATH_LINK_@_FLAG EXE_EXPORTS_@_FLAG)
  string(REPLACE "@" "CXX" cxx_flag ${flag})
  string(REPLACE "@" "OBJCXX" objcxx_flag ${flag})
  set(CMAKE_${objcxx_flag} "${CMAKE_${cxx_flag}}")
endforeach()
