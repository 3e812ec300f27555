# `cmake --install`: headers under include/tavrone, the library, the CMake package and the pkg-config file. The tree may
# be moved after it was installed.
include(CMakePackageConfigHelpers)
set(TAVRONE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/tavronert64)

install(TARGETS tavronert64 EXPORT tavronert64Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY tavrone DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")

install(EXPORT tavronert64Targets NAMESPACE tavrone:: DESTINATION ${TAVRONE_PACKAGE_DIR})
configure_package_config_file(cmake/tavronert64Config.cmake.in tavronert64Config.cmake
                              INSTALL_DESTINATION ${TAVRONE_PACKAGE_DIR})
write_basic_package_version_file(tavronert64ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tavronert64Config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/tavronert64ConfigVersion.cmake
        DESTINATION ${TAVRONE_PACKAGE_DIR})

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
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tavronert64.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
