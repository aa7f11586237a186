# The headers in which most of the time goes when a test is compiled, precompiled once for all tests. A target of its
# own, because a compiler takes them only where all its definitions are: this one has none.
add_library(bt_test_headers OBJECT support/headers.cpp)
target_link_libraries(bt_test_headers PRIVATE PkgConfig::GIO Threads::Threads GTest::gtest GTest::gmock)
target_precompile_headers(bt_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h> <gio/gio.h>)

# What tests are made with: the main function, which enters the sandbox, and the namespace bttest.
add_library(bt_test_support STATIC
  support/BusDaemon.cpp
  support/ChildProcess.cpp
  support/InterfaceDescription.cpp
  support/LogCapture.cpp
  support/MainLoop.cpp
  support/Recorder.cpp
  support/Segments.cpp
  support/TemporaryDirectory.cpp
  support/main.cpp)
target_include_directories(bt_test_support PUBLIC ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/include
                                                  ${CMAKE_CURRENT_LIST_DIR}/..)
target_link_libraries(bt_test_support PUBLIC PkgConfig::GIO Threads::Threads GTest::gtest GTest::gmock
                                      PRIVATE bt_warnings)
target_precompile_headers(bt_test_support REUSE_FROM bt_test_headers)
target_compile_definitions(bt_test_support PRIVATE
  BTTEST_SANDBOX="${CMAKE_SOURCE_DIR}/script/sandbox"
  BTTEST_SERVICE="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/btservice"
  BTTEST_RECORDER="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/bt_recorder"
  BTTEST_INTERFACE_XML="${CMAKE_SOURCE_DIR}/ipc/D-Bus/com.zelk.linux.bluetooth.xml"
  BTTEST_CONTROLS_XML="${CMAKE_SOURCE_DIR}/service/simulation/com.zelk.linux.bluetooth.sim.xml")
