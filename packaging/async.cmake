# How libbtasync is found once it is installed: find_package(libbtasync) with the target libbtasync::btasync, or pkg-config
# libbtasync; and what the tests of applications link, libbtasync::testing or pkg-config libbtasync-testing.
get_target_property(BTASYNC_VERSION btasync VERSION)
get_target_property(BTASYNC_SOVERSION btasync SOVERSION)

set(BTASYNC_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/libbtasync)
configure_package_config_file(libbtasyncConfig.cmake.in libbtasyncConfig.cmake INSTALL_DESTINATION ${BTASYNC_CMAKE_DIR}
                              PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(libbtasyncConfigVersion.cmake VERSION ${BTASYNC_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/libbtasyncConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/libbtasyncConfigVersion.cmake
        DESTINATION ${BTASYNC_CMAKE_DIR} COMPONENT development)

configure_file(libbtasync.pc.in libbtasync.pc @ONLY)
configure_file(libbtasync-testing.pc.in libbtasync-testing.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/libbtasync.pc ${CMAKE_CURRENT_BINARY_DIR}/libbtasync-testing.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
