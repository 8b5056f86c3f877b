# add_plugin_bundle(<name> OBJECTS <object libraries> INFO_PLIST <template> RESOURCES <files>
#                   STRINGS_DIRECTORY <folder of <code>.lproj folders>
#                   DEPENDS <targets that make resources>)
#
# Builds <name>.plugin at the top of the build tree, in the layout that NSBundle reads here: the
# executable beside the folder Resources, which also holds Info.plist.

find_program(ICONV iconv REQUIRED)

function(add_plugin_bundle name)
  cmake_parse_arguments(ARG "" "INFO_PLIST;STRINGS_DIRECTORY" "OBJECTS;RESOURCES;DEPENDS" ${ARGN})

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
  file(GLOB tables CONFIGURE_DEPENDS ${ARG_STRINGS_DIRECTORY}/*.lproj/Localizable.strings)
  foreach(table IN LISTS tables)
    cmake_path(GET table PARENT_PATH folder)
    cmake_path(GET folder STEM language)
    # GNUstep asks for the language of some codes under its English name only.
    set(languages ${language})
    if(language STREQUAL "he")
      list(APPEND languages Hebrew)
    elseif(language STREQUAL "pt_PT")
      list(APPEND languages Portuguese)
    endif()
    foreach(language IN LISTS languages)
      # The strings are UTF-8 in the repository; NSBundle reads UTF-16 with a byte-order mark silently.
      set(converted ${resources}/${language}.lproj/Localizable.strings)
      add_custom_command(
        OUTPUT ${converted}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${resources}/${language}.lproj
        COMMAND ${ICONV} -f UTF-8 -t UTF-16 -o ${converted} ${table}
        DEPENDS ${table}
        VERBATIM)
      list(APPEND outputs ${converted})
    endforeach()
  endforeach()
  add_custom_target(${name}Resources ALL DEPENDS ${outputs})
  add_dependencies(${name} ${name}Resources)
  if(ARG_DEPENDS)
    add_dependencies(${name}Resources ${ARG_DEPENDS})
  endif()

  set(installed ${CMAKE_INSTALL_LIBDIR}/GNUstep/Bundles)
  install(TARGETS ${name} LIBRARY DESTINATION ${installed}/${name}.plugin)
  install(DIRECTORY ${resources} DESTINATION ${installed}/${name}.plugin)
endfunction()
