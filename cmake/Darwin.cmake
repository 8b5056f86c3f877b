# macOS: target Platform::Cocoa with its frameworks, and bundles as its print dialog loads
# them: everything in Contents, the layout compiled, the whole signed.

set(CODESIGN_IDENTITY - CACHE STRING "Who signs the bundle; - signs without an identity (ad hoc)")
set(INSTALLER_IDENTITY "" CACHE STRING "Who signs the installer package; empty: nobody")

set(sdk ${CMAKE_OSX_SYSROOT})
if(NOT sdk)
  execute_process(COMMAND xcrun --sdk macosx --show-sdk-path OUTPUT_VARIABLE sdk
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
set(frameworks ${sdk}/System/Library/Frameworks)

# PrintCore is a framework within another, where compilers do not look for <PrintCore/...>.
add_library(Platform::Cocoa INTERFACE IMPORTED GLOBAL)
target_compile_options(Platform::Cocoa INTERFACE
  "SHELL:-iframework ${frameworks}/ApplicationServices.framework/Frameworks")
target_link_libraries(Platform::Cocoa INTERFACE "-framework Cocoa" "-framework ApplicationServices")

find_program(ICONV iconv REQUIRED)
find_program(IBTOOL ibtool)
find_program(CODESIGN codesign)
if(NOT CMAKE_CROSSCOMPILING AND NOT (IBTOOL AND CODESIGN))
  message(FATAL_ERROR "ibtool and codesign are needed; install Xcode and choose it with xcode-select")
endif()

set(BUNDLE_EXECUTABLES Contents/MacOS)
set(BUNDLE_RESOURCES Contents/Resources)
set(BUNDLE_INFO_PLIST Contents/Info.plist)

# Where cross compiling, there is no compiler of layouts: the file goes into the bundle as it is, to be
# looked at, and no dialog could load it.
function(add_layout variable xib folder)
  if(IBTOOL)
    cmake_path(GET xib STEM name)
    set(layout ${folder}/${name}.nib)
    add_custom_command(
      OUTPUT ${layout}
      COMMAND ${IBTOOL} --errors --warnings --notices --output-format human-readable-text
              --minimum-deployment-target ${CMAKE_OSX_DEPLOYMENT_TARGET} --compile ${layout} ${xib}
      DEPENDS ${xib}
      VERBATIM)
    list(APPEND ${variable} ${layout})
  else()
    add_copied_resource(${variable} ${xib} ${folder})
  endif()
  set(${variable} ${${variable}} PARENT_SCOPE)
endfunction()

function(limit_visible_symbols name constants)
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}.symbols)
  file(CONFIGURE OUTPUT ${list} CONTENT
       "_${constants}\n_OBJC_CLASS_$_*\n_OBJC_METACLASS_$_*\n_OBJC_IVAR_$_*\n")
  target_link_options(${name} PRIVATE LINKER:-exported_symbols_list,${list})
  set_target_properties(${name} PROPERTIES LINK_DEPENDS ${list})
endfunction()

# A signature covers the executable and all resources: it comes last.
function(complete_bundle name bundle)
  if(CODESIGN)
    if(CODESIGN_IDENTITY STREQUAL "-")
      set(options --timestamp=none)
    else()
      set(options --timestamp --options runtime)
    endif()
    set(signed ${CMAKE_CURRENT_BINARY_DIR}/${name}.signed)
    add_custom_command(
      OUTPUT ${signed}
      COMMAND ${CODESIGN} --force ${options} --sign ${CODESIGN_IDENTITY} ${bundle}
      COMMAND ${CMAKE_COMMAND} -E touch ${signed}
      DEPENDS ${name} ${ARGN}
      VERBATIM)
    add_custom_target(${name}Signature ALL DEPENDS ${signed})
  endif()
  install(DIRECTORY ${bundle} DESTINATION Library/Printers/Velmora/PDEs USE_SOURCE_PERMISSIONS)
endfunction()

set(PPD_FOLDER Library/Printers/PPDs/Contents/Resources)
