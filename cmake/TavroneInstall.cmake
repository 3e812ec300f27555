# `cmake --install`: headers under include/tavrone, the library, the CMake package, the pkg-config file and the bill of
# materials. The tree may be moved after it was installed. `--component` takes a part of it: `runtime` is what a program
# runs with, `development` what it is built with on top.
include(CMakePackageConfigHelpers)
set(TAVRONE_RUNTIME_PACKAGE libtavronert64-${PROJECT_VERSION_MAJOR})
set(TAVRONE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/tavronert64)

install(TARGETS tavronert64 EXPORT tavronert64Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY tavrone DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development FILES_MATCHING PATTERN "*.h")

install(EXPORT tavronert64Targets NAMESPACE tavrone:: DESTINATION ${TAVRONE_PACKAGE_DIR} COMPONENT development)
configure_package_config_file(cmake/tavronert64Config.cmake.in tavronert64Config.cmake
                              INSTALL_DESTINATION ${TAVRONE_PACKAGE_DIR})
write_basic_package_version_file(tavronert64ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tavronert64Config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/tavronert64ConfigVersion.cmake
        DESTINATION ${TAVRONE_PACKAGE_DIR} COMPONENT development)

# The .pc file finds its prefix from where it stands, unless somebody chose absolute folders.
set(TAVRONE_PC_PREFIX ${CMAKE_INSTALL_PREFIX})
set(TAVRONE_PC_LIBDIR ${CMAKE_INSTALL_FULL_LIBDIR})
set(TAVRONE_PC_INCLUDEDIR ${CMAKE_INSTALL_FULL_INCLUDEDIR})
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" AND NOT IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  file(RELATIVE_PATH up "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(REGEX REPLACE "/$" "" up "${up}")
  set(TAVRONE_PC_PREFIX "\${pcfiledir}/${up}")
  set(TAVRONE_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
  set(TAVRONE_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file(cmake/tavronert64.pc.in tavronert64.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tavronert64.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

# The bill of materials names the installed library by its hashes, so it is written after it.
set(TAVRONE_RUNTIME_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/${TAVRONE_RUNTIME_PACKAGE})
configure_file(cmake/sbom.cmake.in sbom.cmake @ONLY)
install(CODE "set(library ${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:tavronert64>)" COMPONENT runtime)
install(SCRIPT ${CMAKE_CURRENT_BINARY_DIR}/sbom.cmake COMPONENT runtime)
