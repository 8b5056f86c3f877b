# The installer package of macOS; `cpack` makes it: the bundle where its PPD file says, the PPD files where
# the print system looks for them. Its version is the project's. Include it after all rules for
# installing.

set(CPACK_GENERATOR productbuild)
set(CPACK_PACKAGE_NAME background-numbering)
set(CPACK_PACKAGE_VENDOR "Background Numbering maintainers")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /)
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_PRODUCTBUILD_IDENTIFIER com.velmora.print.pde.BackgroundNumbering)
if(INSTALLER_IDENTITY)
  set(CPACK_PRODUCTBUILD_IDENTITY_NAME ${INSTALLER_IDENTITY})
endif()

# For the whole machine, and nowhere else than where the print dialog looks.
set(CPACK_PRODUCTBUILD_DOMAINS ON)
set(CPACK_PRODUCTBUILD_DOMAINS_ROOT ON)
set(CPACK_PRODUCTBUILD_DOMAINS_USER OFF)
set(CPACK_PRODUCTBUILD_DOMAINS_ANYWHERE OFF)

# The installer shows texts by the ends of their names.
configure_file(${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_BINARY_DIR}/installer/License.txt COPYONLY)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_BINARY_DIR}/installer/License.txt)
foreach(text IN ITEMS Welcome ReadMe)
  string(TOUPPER ${text} variable)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/installer/${text}.txt.in
                 ${PROJECT_BINARY_DIR}/installer/${text}.txt @ONLY)
  set(CPACK_RESOURCE_FILE_${variable} ${PROJECT_BINARY_DIR}/installer/${text}.txt)
endforeach()

include(CPack)
