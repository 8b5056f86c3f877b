# GNUstep: target Platform::Cocoa with the flags that gnustep-config answers, and the layout of bundles
# that its NSBundle reads.
#
# The headers become system headers, so that our own warnings can be errors; optimization, debugging
# and warning flags stay with the presets.

include(CheckSourceCompiles)
include(${CMAKE_CURRENT_LIST_DIR}/ObjectiveCxxLinking.cmake)

find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)
find_program(ICONV iconv REQUIRED)

function(gnustep_config_list result option)
  execute_process(
    COMMAND ${GNUSTEP_CONFIG} ${option}
    OUTPUT_VARIABLE output
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(output UNIX_COMMAND "${output}")
  set(${result} ${output} PARENT_SCOPE)
endfunction()

function(add_gnustep_target name libraries_option)
  gnustep_config_list(flags --objc-flags)
  list(REMOVE_ITEM flags -MMD -MP -g -O2 -Wall -I.)
  set(includes ${flags})
  list(FILTER includes INCLUDE REGEX "^-I/")
  list(TRANSFORM includes REPLACE "^-I" "")
  foreach(directory IN LISTS includes)
    if(NOT IS_DIRECTORY ${directory})
      list(REMOVE_ITEM includes ${directory})
    endif()
  endforeach()
  list(FILTER flags EXCLUDE REGEX "^-I")

  gnustep_config_list(libraries ${libraries_option})
  list(REMOVE_ITEM libraries -rdynamic -shared-libgcc)

  # clang does not look into GCC's own directories, which hold <objc/objc.h> and libobjc.
  execute_process(COMMAND gcc -print-file-name=include OUTPUT_VARIABLE gcc_include
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND gcc -print-libgcc-file-name OUTPUT_VARIABLE libgcc
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  cmake_path(GET libgcc PARENT_PATH libgcc_directory)

  add_library(${name} INTERFACE IMPORTED GLOBAL)
  list(APPEND flags -fobjc-runtime=gcc "SHELL:-idirafter ${gcc_include}")
  target_compile_options(${name} INTERFACE "$<$<COMPILE_LANGUAGE:OBJCXX>:${flags}>")
  target_include_directories(${name} SYSTEM INTERFACE ${includes})
  target_link_options(${name} INTERFACE -L${libgcc_directory})
  target_link_libraries(${name} INTERFACE ${libraries})
endfunction()

add_gnustep_target(Platform::Cocoa --gui-libs)

# Newer ones have control identifiers of their own.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_REQUIRED_LIBRARIES Platform::Cocoa)
check_source_compiles(OBJCXX "#import <AppKit/NSView.h>
NSString *Identifier(NSView *view) { return view.identifier; }" VIEWS_HAVE_IDENTIFIERS)
unset(CMAKE_REQUIRED_LIBRARIES)
unset(CMAKE_TRY_COMPILE_TARGET_TYPE)

# The executable beside the folder Resources, which also holds Info.plist.
set(BUNDLE_EXECUTABLES .)
set(BUNDLE_RESOURCES Resources)
set(BUNDLE_INFO_PLIST Resources/Info.plist)

# GNUstep asks for the language of some codes under its English name only.
set(SECOND_FOLDER_OF_he Hebrew)
set(SECOND_FOLDER_OF_pt_PT Portuguese)

# Layout files are read as they are.
function(add_layout variable xib folder)
  add_copied_resource(${variable} ${xib} ${folder})
  set(${variable} ${${variable}} PARENT_SCOPE)
endfunction()

# Without it the runtime's names of selectors and of the platform's classes would be visible too.
function(limit_visible_symbols name constants)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${name}.version)
  file(CONFIGURE OUTPUT ${script} CONTENT
       "{ global: ${constants}; _OBJC_CLASS_*; _OBJC_METACLASS_*; __objc_class_name_*; local: *; };\n")
  target_link_options(${name} PRIVATE LINKER:--version-script=${script})
  set_target_properties(${name} PROPERTIES LINK_DEPENDS ${script})
endfunction()

# What bundles link with lies above them in the build tree. Where they are installed the way leads from
# the folder that GNUstep and pdeprint look in to the folder of libraries, which may be called otherwise.
function(complete_bundle name bundle)
  set(installed lib/GNUstep/Bundles/${name}.plugin)
  set(libraries ${CMAKE_INSTALL_FULL_LIBDIR})
  cmake_path(RELATIVE_PATH libraries BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${installed})
  set_target_properties(${name} PROPERTIES BUILD_RPATH "$ORIGIN/.." INSTALL_RPATH "$ORIGIN/${libraries}")
  install(TARGETS ${name} LIBRARY DESTINATION ${installed} COMPONENT bundle)
  install(DIRECTORY ${bundle}/${BUNDLE_RESOURCES} DESTINATION ${installed} COMPONENT bundle)
endfunction()

set(PPD_FOLDER ${CMAKE_INSTALL_DATADIR}/ppd/velmora)
