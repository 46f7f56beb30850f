# The Debian package: `cmake --workflow --preset package` writes it into build/package.
set(QUANDRIX_MAINTAINER "QUANDRIX maintainers <maintainers@example.org>" CACHE STRING "Maintainer of the package")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${QUANDRIX_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${CMAKE_CURRENT_LIST_DIR}/description.txt)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION comm)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_documents.cmake)
include(CPack)
