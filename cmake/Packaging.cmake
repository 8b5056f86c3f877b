# Packages of what is installed; `cpack` makes them. Their version is the project's. Include it after
# all rules for installing.

set(CPACK_PACKAGE_NAME background-numbering)
set(CPACK_PACKAGE_VENDOR "Background Numbering maintainers")
# No mailbox: the packages are made by whoever builds them.
set(CPACK_PACKAGE_CONTACT "${CPACK_PACKAGE_VENDOR} <maintainers@background-numbering.invalid>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(APPLE)
  include(${CMAKE_CURRENT_LIST_DIR}/InstallerPackage.cmake)
else()
  include(${CMAKE_CURRENT_LIST_DIR}/DebianPackages.cmake)
endif()
include(CPack)
