# The head unit of examples/, off the screen, against the simulated service.
find_package(Qt6 ${BT_QT_VERSION} REQUIRED COMPONENTS DBus Gui Qml Quick Test)
add_executable(headunit_test ${CMAKE_CURRENT_LIST_DIR}/headunit_test.cpp ${CMAKE_CURRENT_LIST_DIR}/VisibleTexts.cpp
               ${CMAKE_CURRENT_LIST_DIR}/RunningHeadUnit.cpp)
set_target_properties(headunit_test PROPERTIES AUTOMOC ON)
target_include_directories(headunit_test PRIVATE ${CMAKE_CURRENT_LIST_DIR})
target_compile_definitions(headunit_test PRIVATE QT_NO_KEYWORDS)
target_link_libraries(headunit_test PRIVATE headunit_screens Qt6::Test bt_warnings)
add_dependencies(headunit_test btasyncqtplugin btservice)
add_test(NAME headunit_test/WalksThroughTheScreens
  COMMAND ${CMAKE_SOURCE_DIR}/script/sandbox --service $<TARGET_FILE:btservice> dbus-run-session --
          $<TARGET_FILE:headunit_test>)
set_tests_properties(headunit_test/WalksThroughTheScreens PROPERTIES
  TIMEOUT 300  # seconds; a test of several screens, each waits for what it shows
  LABELS qt
  ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software")
