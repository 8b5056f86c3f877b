# Run by cpack when it has installed each component into a folder of its own: what Debian wants of
# packages beyond the installed files.

cmake_policy(VERSION 3.25)
set(debian ${CMAKE_CURRENT_LIST_DIR})

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(folder_of component result)
  set(${result} ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}
      PARENT_SCOPE)
endfunction()

function(find_binaries folder result)
  file(GLOB_RECURSE files ${folder}/bin/* ${folder}/lib/*)
  set(binaries)
  foreach(file IN LISTS files)
    file(READ ${file} magic LIMIT 4 HEX)
    if(magic STREQUAL "7f454c46" AND NOT IS_SYMLINK ${file})
      list(APPEND binaries ${file})
    endif()
  endforeach()
  set(${result} ${binaries} PARENT_SCOPE)
endfunction()

# Below /usr the library is found without them.
function(remove_run_paths folder)
  find_binaries(${folder} binaries)
  foreach(binary IN LISTS binaries)
    file(RPATH_REMOVE FILE ${binary})
  endforeach()
endfunction()

# Sets the result to the packages that the binaries of a folder need, separated as in a control file.
function(find_dependencies folder result)
  set(${result} "" PARENT_SCOPE)
  find_binaries(${folder} binaries)
  if(NOT binaries)
    return()
  endif()
  # The tool wants to be in a source package, and the binaries in one that is being made.
  set(source ${CPACK_TOPLEVEL_DIRECTORY}/shlibdeps)
  file(WRITE ${source}/debian/control "")
  file(MAKE_DIRECTORY ${folder}/DEBIAN)
  folder_of(library library)
  list(TRANSFORM binaries PREPEND -e)
  list(GET CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA 0 shlibs)
  execute_process(
    COMMAND dpkg-shlibdeps --warnings=1 -O -L${shlibs} -l${library}/lib ${binaries}
    WORKING_DIRECTORY ${source} OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${folder}/DEBIAN)
  string(REGEX REPLACE "^shlibs:Depends=" "" dependencies "${output}")
  set(${result} "${dependencies}" PARENT_SCOPE)
endfunction()

function(add_documents folder package)
  set(documents ${folder}/share/doc/${package})
  file(COPY ${debian}/copyright DESTINATION ${documents})
  set(changelog ${documents}/changelog)
  execute_process(
    COMMAND ${debian}/changelog ${CPACK_DEBIAN_PACKAGE_SOURCE} ${CPACK_PACKAGE_CONTACT}
            ${debian}/../../CHANGELOG.md
    OUTPUT_FILE ${changelog} COMMAND_ERROR_IS_FATAL ANY)
  run(gzip -9n ${changelog})
  set(overrides ${debian}/${package}.lintian-overrides)
  if(EXISTS ${overrides})
    file(MAKE_DIRECTORY ${folder}/share/lintian/overrides)
    file(COPY_FILE ${overrides} ${folder}/share/lintian/overrides/${package})
  endif()
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  folder_of(${component} folder)
  remove_run_paths(${folder})
endforeach()
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} COMPONENT)
  folder_of(${component} folder)
  find_dependencies(${folder} dependencies)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_DEPENDS "${dependencies}")
  # Debian keeps the other folder for the machine's own.
  if(EXISTS ${folder}/share/zsh/site-functions)
    file(RENAME ${folder}/share/zsh/site-functions ${folder}/share/zsh/vendor-completions)
  endif()
  file(GLOB pages ${folder}/share/man/man*/*)
  foreach(page IN LISTS pages)
    run(gzip -9n ${page})
  endforeach()
  add_documents(${folder} ${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME})
  # Whatever the modes in the sources and the umask here.
  run(chmod -R u=rwX,go=rX ${folder})
endforeach()
