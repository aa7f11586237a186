# How the library for Qt 6 is found once it is installed: find_package(libbtasyncqt) with the target
# libbtasyncqt::btasyncqt, or pkg-config libbtasyncqt. Its component holds all of it, unlike those of the other libraries:
# so `development` is the same wherever Qt 6 was found or not.
get_target_property(BTASYNCQT_VERSION btasyncqt VERSION)
get_target_property(BTASYNCQT_SOVERSION btasyncqt SOVERSION)

set(BTASYNCQT_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/libbtasyncqt)
configure_package_config_file(libbtasyncqtConfig.cmake.in libbtasyncqtConfig.cmake
                              INSTALL_DESTINATION ${BTASYNCQT_CMAKE_DIR}
                              PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR BT_QML_INSTALL_DIR)
write_basic_package_version_file(libbtasyncqtConfigVersion.cmake VERSION ${BTASYNCQT_VERSION}
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/libbtasyncqtConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/libbtasyncqtConfigVersion.cmake
        DESTINATION ${BTASYNCQT_CMAKE_DIR} COMPONENT qt)

configure_file(libbtasyncqt.pc.in libbtasyncqt.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/libbtasyncqt.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT qt)
