# The head unit of examples/, off the screen, against the simulated service.
find_package(Qt6 ${BT_QT_VERSION} REQUIRED COMPONENTS DBus Gui Qml Quick QuickControls2 QuickTest Test)

set(headunit_tests ${CMAKE_CURRENT_LIST_DIR})
add_library(headunit_testing STATIC
  ${headunit_tests}/HeadUnitTest.h
  ${headunit_tests}/RunningHeadUnit.cpp ${headunit_tests}/RunningHeadUnit.h
  ${headunit_tests}/VisibleTexts.cpp ${headunit_tests}/VisibleTexts.h)
set_target_properties(headunit_testing PROPERTIES AUTOMOC ON)
target_include_directories(headunit_testing PUBLIC ${headunit_tests})
target_compile_definitions(headunit_testing PUBLIC
  QT_NO_KEYWORDS
  HEADUNIT_DESK_WORLD="${headunit_tests}/desk_world.json"
  HEADUNIT_SLOW_DOWNLOAD_WORLD="${headunit_tests}/slow_download_world.json")
target_link_libraries(headunit_testing PUBLIC headunit_screens Qt6::Test bt_test_support PRIVATE bt_warnings)
add_custom_target(tests_headunit)

foreach(subject calls contacts music panel service settings texts)
  set(name headunit_${subject}_test)
  add_executable(${name} ${headunit_tests}/${subject}_test.cpp)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE headunit_testing Qt6::QuickControls2 bt_warnings)
  add_dependencies(${name} btasyncqtplugin btservice)
  add_dependencies(tests_headunit ${name})
  add_test(NAME ${name}/off_the_screen
    COMMAND ${CMAKE_SOURCE_DIR}/script/sandbox --service $<TARGET_FILE:btservice> $<TARGET_FILE:${name}>)
  set_tests_properties(${name}/off_the_screen PROPERTIES
    TIMEOUT 300  # seconds; a test of several screens, each waits for what it shows
    LABELS qt
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software")
endforeach()

# The same screens with the service in memory, in QML.
set(qt_tests ${CMAKE_CURRENT_LIST_DIR}/../qt)
add_executable(headunit_quick_test ${qt_tests}/quick_test.cpp ${qt_tests}/FakePhone.h)
set_target_properties(headunit_quick_test PROPERTIES AUTOMOC ON)
target_include_directories(headunit_quick_test PRIVATE ${qt_tests})
target_compile_definitions(headunit_quick_test PRIVATE
  QT_NO_KEYWORDS QUICK_TEST_SOURCE_DIR="${headunit_tests}/qml")
target_link_libraries(headunit_quick_test PRIVATE
  headunit_screens btasyncqt btasync_testing btasync Qt6::QuickTest bt_warnings)
add_dependencies(headunit_quick_test btasyncqtplugin)
add_dependencies(tests_headunit headunit_quick_test)
add_test(NAME headunit_quick_test/off_the_screen
  COMMAND ${CMAKE_SOURCE_DIR}/script/sandbox --service empty $<TARGET_FILE:headunit_quick_test>)
set_tests_properties(headunit_quick_test/off_the_screen PROPERTIES
  TIMEOUT 300
  LABELS qt
  ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;QML_IMPORT_PATH=${BT_QML_DIR}")
