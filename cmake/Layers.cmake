# Layers of a program: folders with a library each, whose sources find the headers of their own folder and
# of the layers that they use, and no others. An #include against the arrows does not compile.
#
# add_layer(<folder> [USES <folders>] [LIBRARIES <targets>] [PRIVATE_LIBRARIES <targets>])
#
# Makes the target host_<folder>, of all sources in the folder but main.cpp; what it uses may be used
# through it. Folders below it are layers of their own.

# offer_headers(<target> <folder> <headers>)
#
# Lets those who use the target include these as "folder/...", and nothing else of their folder.
function(offer_headers target folder)
  set(place ${CMAKE_CURRENT_BINARY_DIR}/headers/${target})
  file(REMOVE_RECURSE ${place})
  file(MAKE_DIRECTORY ${place}/${folder})
  foreach(header IN LISTS ARGN)
    cmake_path(GET header FILENAME name)
    file(CREATE_LINK ${header} ${place}/${folder}/${name} SYMBOLIC)
  endforeach()
  target_include_directories(${target} PUBLIC ${place})
endfunction()

set(LAYERS_OF_FEW_SOURCES 5)  # for which reading common headers only once would take longer

function(add_layer folder)
  cmake_parse_arguments(ARG "" "" "USES;LIBRARIES;PRIVATE_LIBRARIES" ${ARGN})
  string(REPLACE "/" "_" name host_${folder})
  string(REPLACE "/" "_" used "${ARG_USES}")
  list(TRANSFORM used PREPEND host_)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.mm)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC ${used} ${ARG_LIBRARIES} PRIVATE ${ARG_PRIVATE_LIBRARIES})

  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  offer_headers(${name} host/${folder} ${headers})

  list(LENGTH sources count)
  if(count GREATER LAYERS_OF_FEW_SOURCES)
    precompile_headers(${name})
  endif()
endfunction()
