# The Debian packages, which `cmake --workflow --preset package` writes into build/package. The second one has the
# programs of QUANDRIX_CAPTURES.
set(QUANDRIX_MAINTAINER "QUANDRIX maintainers <maintainers@example.org>" CACHE STRING "Maintainer of the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${QUANDRIX_MAINTAINER}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION comm)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # else it would come before the summary of each package
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_documents.cmake)

# package COMPONENT NAME DESCRIPTION: makes a package of what is installed as that component. DESCRIPTION is a file; its
# first line is the summary.
macro(package component name description)
  string(TOUPPER ${component} upper)
  file(READ ${CMAKE_CURRENT_LIST_DIR}/${description} CPACK_DEBIAN_${upper}_DESCRIPTION)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  list(APPEND CPACK_COMPONENTS_ALL ${component})
endmacro()

package(quandrix quandrix description.txt)
set(CPACK_DEBIAN_QUANDRIX_PACKAGE_RECOMMENDS "bsdextrautils, miller")
if(QUANDRIX_CAPTURES)
  package(captures quandrix-captures captures.txt)
  set(CPACK_DEBIAN_CAPTURES_PACKAGE_RECOMMENDS quandrix)
endif()
include(CPack)
