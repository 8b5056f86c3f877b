# Read by cpack before it does anything.

# The files of the packages are as old as the version: packing again makes the same packages.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/changelog --time ${CPACK_PACKAGE_VERSION}
            ${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md
    OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} ${time})
elseif(NOT "$ENV{SOURCE_DATE_EPOCH}" MATCHES "^[0-9]+$")
  message(FATAL_ERROR "SOURCE_DATE_EPOCH must be seconds since 1970, and is \"$ENV{SOURCE_DATE_EPOCH}\"")
endif()
