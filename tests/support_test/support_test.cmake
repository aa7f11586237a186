# The tools that tests are made with have tests of their own: a tool that lies makes tests that cannot fail.
bt_add_test(NAME support_test
  SOURCES bus_test.cpp child_process_test.cpp interface_test.cpp log_capture_test.cpp main_loop_test.cpp
          recorder_test.cpp recorder_answers_test.cpp sandbox_test.cpp segments_test.cpp
  LABELS support)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
bt_add_source_test(NAME support_emulator/CrashesAreToldApartFromFailures
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/emulator_crashes_test.py)
target_sources(support_test PRIVATE ${CMAKE_CURRENT_LIST_DIR}/../recorder/ZeroValue.cpp)
target_compile_definitions(support_test PRIVATE BTTEST_SANDBOX="${CMAKE_SOURCE_DIR}/script/sandbox")
