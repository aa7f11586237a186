# The Qt library. Each test runs with Qt's dispatcher on GLib's loop and without it.
find_package(Qt6 ${BT_QT_VERSION} REQUIRED COMPONENTS Quick QuickTest Test Widgets)

# bt_add_qt_test(name source... [LIBS library...] [SERVICE]): SERVICE: it runs with btservice and a bus of its own.
function(bt_add_qt_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "SERVICE" "" "LIBS")
  set(sources ${TEST_UNPARSED_ARGUMENTS})
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_LIST_DIR})
  target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS)
  target_link_libraries(${name} PRIVATE btasyncqt btasync_testing btasync Qt6::Test ${TEST_LIBS} bt_warnings)
  if(NOT TARGET tests_qt)
    add_custom_target(tests_qt)
  endif()
  add_dependencies(tests_qt ${name})
  set(command ${CMAKE_SOURCE_DIR}/script/sandbox --service empty $<TARGET_FILE:${name}>)
  if(TEST_SERVICE)
    add_dependencies(tests_qt btservice)
    set(command ${CMAKE_SOURCE_DIR}/script/sandbox --service $<TARGET_FILE:btservice>
                dbus-run-session -- $<TARGET_FILE:${name}>)
  endif()
  foreach(no_glib 0 1)
    # Qt looks only whether the variable is there.
    set(way on_glibs_loop)
    set(loop QT_NO_GLIB=unset:)
    if(no_glib)
      set(way on_qts_own_loop)
      set(loop QT_NO_GLIB=set:1)
    endif()
    add_test(NAME ${name}/${way} COMMAND ${command})
    set_tests_properties(${name}/${way} PROPERTIES
      TIMEOUT ${BT_TEST_TIMEOUT}
      LABELS qt
      ENVIRONMENT_MODIFICATION ${loop}
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;QML_IMPORT_PATH=${BT_QML_DIR}")
  endforeach()
endfunction()

bt_add_qt_test(qt_models_test models_test.cpp)
bt_add_qt_test(qt_operation_test operation_test.cpp)
foreach(subject adapter call_logs calls contacts devices download music network service)
  bt_add_qt_test(qt_${subject}_test ${subject}_test.cpp SubjectTest.h)
endforeach()
if(BT_BUILD_SIMULATION)
  bt_add_qt_test(qt_loop_test loop_test.cpp SERVICE)

  # The examples of the README.
  set(readme ${CMAKE_SOURCE_DIR}/qt/README.md)
  bt_add_qt_test(qt_readme_screen_test readme_screen_test.cpp SERVICE LIBS Qt6::Quick)
  target_compile_definitions(qt_readme_screen_test PRIVATE QT_README="${readme}")
  add_dependencies(qt_readme_screen_test btasyncqtplugin)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${readme})
  file(READ ${readme} text)
  string(REGEX MATCH "```cpp\n([^`]*)```" block "${text}")
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/qt_readme/readme_program.cpp CONTENT "${CMAKE_MATCH_1}" @ONLY)
  bt_add_qt_test(qt_readme_program_test readme_program_test.cpp SERVICE LIBS Qt6::Widgets)
  target_include_directories(qt_readme_program_test PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/qt_readme)
endif()
bt_add_qt_test(qt_quick_test quick_test.cpp FakePhone.h LIBS Qt6::QuickTest)
target_compile_definitions(qt_quick_test PRIVATE QUICK_TEST_SOURCE_DIR="${CMAKE_CURRENT_LIST_DIR}/qml")
