# add_plugin_bundle(<name> OBJECTS <object libraries> INFO_PLIST <template> RESOURCES <files>
#                   LANGUAGES <codes> STRINGS_DIRECTORY <folder of <code>.lproj folders>)
#
# Builds <name>.plugin at the top of the build tree, in the layout that NSBundle reads here: the
# executable beside the folder Resources, which also holds Info.plist.

find_program(ICONV iconv REQUIRED)

function(add_plugin_bundle name)
  cmake_parse_arguments(ARG "" "INFO_PLIST;STRINGS_DIRECTORY" "OBJECTS;RESOURCES;LANGUAGES" ${ARGN})

  set(bundle ${PROJECT_BINARY_DIR}/${name}.plugin)
  set(resources ${bundle}/Resources)

  add_library(${name} MODULE)
  target_link_libraries(${name} PRIVATE ${ARG_OBJECTS})
  set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX "" LIBRARY_OUTPUT_DIRECTORY ${bundle}
                                           BUILD_RPATH "$ORIGIN/.."
                                           INSTALL_RPATH "$ORIGIN/../../..")

  configure_file(${ARG_INFO_PLIST} ${resources}/Info.plist @ONLY)

  set(outputs)
  foreach(resource IN LISTS ARG_RESOURCES)
    cmake_path(GET resource FILENAME file_name)
    add_custom_command(
      OUTPUT ${resources}/${file_name}
      COMMAND ${CMAKE_COMMAND} -E copy ${resource} ${resources}/${file_name}
      DEPENDS ${resource}
      VERBATIM)
    list(APPEND outputs ${resources}/${file_name})
  endforeach()
  foreach(language IN LISTS ARG_LANGUAGES)
    # The strings are UTF-8 in the repository; NSBundle reads UTF-16 with a byte-order mark silently.
    set(strings ${ARG_STRINGS_DIRECTORY}/${language}.lproj/Localizable.strings)
    set(converted ${resources}/${language}.lproj/Localizable.strings)
    add_custom_command(
      OUTPUT ${converted}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${resources}/${language}.lproj
      COMMAND ${ICONV} -f UTF-8 -t UTF-16 -o ${converted} ${strings}
      DEPENDS ${strings}
      VERBATIM)
    list(APPEND outputs ${converted})
  endforeach()
  add_custom_target(${name}Resources ALL DEPENDS ${outputs})
  add_dependencies(${name} ${name}Resources)

  set(installed ${CMAKE_INSTALL_LIBDIR}/GNUstep/Bundles)
  install(TARGETS ${name} LIBRARY DESTINATION ${installed}/${name}.plugin)
  install(DIRECTORY ${resources} DESTINATION ${installed}/${name}.plugin)
endfunction()
