# add_strings_tables(<variable> FROM <folder of <code>.lproj folders> TABLE <name> TO <folder>)
#
# Converts the tables <code>.lproj/<name>.strings and puts them into folders <code>.lproj where NSBundle
# looks for them; the paths of all that are made are appended to the variable.

function(add_strings_tables variable)
  cmake_parse_arguments(ARG "" "FROM;TABLE;TO" "" ${ARGN})
  set(outputs ${${variable}})
  file(GLOB tables CONFIGURE_DEPENDS ${ARG_FROM}/*.lproj/${ARG_TABLE}.strings)
  foreach(table IN LISTS tables)
    cmake_path(GET table PARENT_PATH folder)
    cmake_path(GET folder STEM language)
    foreach(name IN ITEMS ${language} ${SECOND_FOLDER_OF_${language}})
      # The strings are UTF-8 in the repository; NSBundle reads UTF-16 with a byte-order mark silently.
      set(converted ${ARG_TO}/${name}.lproj/${ARG_TABLE}.strings)
      add_custom_command(
        OUTPUT ${converted}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${ARG_TO}/${name}.lproj
        COMMAND ${ICONV} -f UTF-8 -t UTF-16 ${table} > ${converted}
        DEPENDS ${table}
        VERBATIM)
      list(APPEND outputs ${converted})
    endforeach()
  endforeach()
  set(${variable} ${outputs} PARENT_SCOPE)
endfunction()
