# add_strings_tables(<variable> FROM <folder of <code>.lproj folders> TABLE <name> TO <folder>)
#
# Converts the tables <code>.lproj/<name>.strings and puts them into folders <code>.lproj where NSBundle
# looks for them; the paths of all that are made are appended to the variable.

find_program(ICONV iconv REQUIRED)

function(add_strings_tables variable)
  cmake_parse_arguments(ARG "" "FROM;TABLE;TO" "" ${ARGN})
  set(outputs ${${variable}})
  file(GLOB tables CONFIGURE_DEPENDS ${ARG_FROM}/*.lproj/${ARG_TABLE}.strings)
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
      set(converted ${ARG_TO}/${language}.lproj/${ARG_TABLE}.strings)
      add_custom_command(
        OUTPUT ${converted}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${ARG_TO}/${language}.lproj
        COMMAND ${ICONV} -f UTF-8 -t UTF-16 -o ${converted} ${table}
        DEPENDS ${table}
        VERBATIM)
      list(APPEND outputs ${converted})
    endforeach()
  endforeach()
  set(${variable} ${outputs} PARENT_SCOPE)
endfunction()
