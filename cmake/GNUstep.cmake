# Targets GNUstep::Base and GNUstep::Gui with the flags that gnustep-config answers.
#
# The headers become system headers, so that our own warnings can be errors; optimisation, debugging
# and warning flags stay with the presets.

find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)

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

add_gnustep_target(GNUstep::Base --base-libs)
add_gnustep_target(GNUstep::Gui --gui-libs)
