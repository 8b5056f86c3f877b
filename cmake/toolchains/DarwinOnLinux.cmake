# Compiles and links for macOS on Linux, against headers and link stubs of its SDK in
# MACOS_SDK, for scripts/macos-check. What comes out is looked at, and not run.

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACOS_SDK)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(CMAKE_OSX_SYSROOT ${MACOS_SDK})
set(CMAKE_FIND_ROOT_PATH ${MACOS_SDK} ${MACOS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

include(${CMAKE_CURRENT_LIST_DIR}/../ClangTools.cmake)
find_clang_tool(CLANG clang)
find_clang_tool(CLANGXX clang++)
set(CMAKE_C_COMPILER ${CLANG})
set(CMAKE_CXX_COMPILER ${CLANGXX})
set(CMAKE_OBJCXX_COMPILER ${CLANGXX})
set(CMAKE_C_COMPILER_TARGET arm64-apple-macos)
set(CMAKE_CXX_COMPILER_TARGET arm64-apple-macos)
set(CMAKE_OBJCXX_COMPILER_TARGET arm64-apple-macos)
find_clang_tool(LIBTOOL llvm-libtool-darwin)
find_clang_tool(CMAKE_INSTALL_NAME_TOOL llvm-install-name-tool)
find_clang_tool(LIPO llvm-lipo)
find_clang_tool(LD64 ld64.lld)

# The compiler looks for the platform's linker and for lipo under their own names.
set(tools ${CMAKE_BINARY_DIR}/tools)
file(MAKE_DIRECTORY ${tools})
file(CREATE_LINK ${LIPO} ${tools}/lipo SYMBOLIC)
file(CREATE_LINK ${LD64} ${tools}/ld64.lld SYMBOLIC)
set(CMAKE_C_FLAGS_INIT -B${tools})
foreach(language IN ITEMS CXX OBJCXX)
  set(CMAKE_${language}_FLAGS_INIT "-B${tools} -stdlib=libc++")
  # The other archiver makes no index of files for several processors.
  set(CMAKE_${language}_CREATE_STATIC_LIBRARY "${LIBTOOL} -static -o <TARGET> <OBJECTS>")
endforeach()

# A bundle may use what the SDK and the stubs name and nothing else. Programs are linked to see that
# their own parts fit together; the C and C++ libraries have far more than the stubs.
set(CMAKE_MODULE_LINKER_FLAGS_INIT -fuse-ld=lld)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -Wl,-undefined,dynamic_lookup")
