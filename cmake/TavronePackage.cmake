# `cpack`: the Debian packages of the two components, or one archive where Debian's tools are missing. The preset
# `package` builds for /usr, with Debian's folder of libraries.
find_program(DPKG_DEB_PROGRAM dpkg-deb)
mark_as_advanced(DPKG_DEB_PROGRAM)
if(NOT CPACK_GENERATOR)
  if(DPKG_DEB_PROGRAM)
    set(CPACK_GENERATOR DEB)
  else()
    set(CPACK_GENERATOR TGZ)
  endif()
endif()

set(CPACK_PACKAGE_VENDOR ${PROJECT_NAME})
if(NOT CPACK_PACKAGE_CONTACT)
  set(CPACK_PACKAGE_CONTACT "${PROJECT_NAME} maintainers <maintainers@localhost>")
endif()
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/permissions.cmake)
set(CPACK_SOURCE_IGNORE_FILES "/build[^/]*/" "/[.]git/")

# A package for each component, the runtime's named for its soname, so that two of them may be installed side by side.
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${TAVRONE_RUNTIME_PACKAGE})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtavronert64-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${TAVRONE_RUNTIME_PACKAGE} (= ${PROJECT_VERSION})")
set(formats "It reads, checks, maps and writes messages of four wire formats:\nUniversal, FIX, SIAC Canonical and FCS.")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${formats}\nThis package holds the library that programs run with.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "${formats}\nThis package holds what programs are built with: headers, CMake package,\npkg-config file and documents.")

# What a Debian package carries on top: no part of `cmake --install`.
string(TIMESTAMP TAVRONE_CHANGELOG_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(cmake/debian/changelog.in debian/changelog @ONLY)
configure_file(cmake/debian/copyright.in debian/copyright @ONLY)
find_program(GZIP_PROGRAM gzip)
mark_as_advanced(GZIP_PROGRAM)
set(carried ${CMAKE_CURRENT_BINARY_DIR}/debian/copyright)
if(GZIP_PROGRAM)
  execute_process(COMMAND ${GZIP_PROGRAM} -9nf debian/changelog WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
  list(APPEND carried ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.gz)
endif()
install(FILES ${carried} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${TAVRONE_RUNTIME_PACKAGE}
        COMPONENT runtime EXCLUDE_FROM_ALL)
install(FILES ${carried} README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libtavronert64-dev
        COMPONENT development EXCLUDE_FROM_ALL)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libtavronert64-dev
        COMPONENT development EXCLUDE_FROM_ALL FILES_MATCHING PATTERN "*.md")

include(CPack)
