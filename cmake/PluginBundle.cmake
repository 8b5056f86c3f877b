# add_plugin_bundle(<name> OBJECTS <object libraries> CONSTANTS <pattern of names> INFO_PLIST <template>
#                   LAYOUT <.xib> RESOURCES <files> STRINGS_DIRECTORY <folder of <code>.lproj folders>
#                   DEPENDS <targets that make resources>)
#
# Builds <name>.plugin at the top of the build tree, in the platform's own layout, and installs it where
# the platform looks for it. Its classes and the constants that the pattern names are visible to others,
# nothing else.

include(${CMAKE_CURRENT_LIST_DIR}/StringsTables.cmake)

# Puts a file into a folder of the bundle; the copy's path is appended to the variable.
function(add_copied_resource variable file folder)
  cmake_path(GET file FILENAME file_name)
  add_custom_command(
    OUTPUT ${folder}/${file_name}
    COMMAND ${CMAKE_COMMAND} -E copy ${file} ${folder}/${file_name}
    DEPENDS ${file}
    VERBATIM)
  set(${variable} ${${variable}} ${folder}/${file_name} PARENT_SCOPE)
endfunction()

function(add_plugin_bundle name)
  cmake_parse_arguments(ARG "" "CONSTANTS;INFO_PLIST;LAYOUT;STRINGS_DIRECTORY" "OBJECTS;RESOURCES;DEPENDS" ${ARGN})

  set(bundle ${PROJECT_BINARY_DIR}/${name}.plugin)
  set(resources ${bundle}/${BUNDLE_RESOURCES})

  add_library(${name} MODULE)
  target_link_libraries(${name} PRIVATE ${ARG_OBJECTS})
  set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ""
                                           LIBRARY_OUTPUT_DIRECTORY ${bundle}/${BUNDLE_EXECUTABLES})

  limit_visible_symbols(${name} ${ARG_CONSTANTS})

  configure_file(${ARG_INFO_PLIST} ${bundle}/${BUNDLE_INFO_PLIST} @ONLY)

  set(outputs)
  add_layout(outputs ${ARG_LAYOUT} ${resources})
  foreach(resource IN LISTS ARG_RESOURCES)
    add_copied_resource(outputs ${resource} ${resources})
  endforeach()
  add_strings_tables(outputs FROM ${ARG_STRINGS_DIRECTORY} TABLE Localizable TO ${resources})
  add_custom_target(${name}Resources ALL DEPENDS ${outputs})
  add_dependencies(${name} ${name}Resources)
  if(ARG_DEPENDS)
    add_dependencies(${name}Resources ${ARG_DEPENDS})
  endif()

  complete_bundle(${name} ${bundle} ${outputs} ${bundle}/${BUNDLE_INFO_PLIST})
endfunction()
