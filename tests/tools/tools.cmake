# btctl: its parts, and the program itself with the recording service, with btservice, and at a terminal.
if(NOT BT_BUILD_TOOLS)
  return()
endif()

add_library(bt_tools_support STATIC tools/Btctl.cpp tools/Simulation.cpp tools/Terminal.cpp)
target_compile_definitions(bt_tools_support PUBLIC
  BTCTL_EXECUTABLE="$<TARGET_FILE:btctl>" BT_WORLDS="${CMAKE_SOURCE_DIR}/service/simulation/worlds")
target_link_libraries(bt_tools_support PUBLIC bt_test_support bt_internal btctl_parts util PRIVATE bt_warnings)
target_precompile_headers(bt_tools_support REUSE_FROM bt_test_headers)
add_dependencies(bt_tools_support btctl)

bt_add_test(NAME tools_parts_test
  SOURCES command_line_test.cpp command_rows.cpp completion_test.cpp events_test.cpp terminal_safety_test.cpp
  LIBS bt_tools_support)

bt_add_test(NAME tools_btctl_test
  SOURCES bad_worlds_test.cpp command_rows.cpp commands_test.cpp coverage_test.cpp derived_rows.cpp devices_test.cpp
          json_test.cpp outcome_test.cpp
  LIBS bt_tools_support)
target_compile_definitions(tools_btctl_test PRIVATE BT_PUBLIC_HEADERS="${CMAKE_SOURCE_DIR}/include/bluetooth")

bt_add_test(NAME tools_shell_test SOURCES shell_test.cpp LIBS bt_tools_support)

if(BT_BUILD_SIMULATION)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  bt_add_test(NAME tools_service_test SOURCES full_segments_test.cpp refusal_test.cpp service_test.cpp worlds_test.cpp
    LIBS bt_tools_support)
  add_dependencies(tools_service_test btservice)

  # A small round with a fixed seed; by hand, more: see the program.
  add_test(NAME tools_shell_drive/RoughHandlingInATerminal
    COMMAND ${CMAKE_SOURCE_DIR}/script/sandbox --service $<TARGET_FILE:btservice> dbus-run-session --
            ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/shell_drive.py $<TARGET_FILE:btctl> /app/bin/btservice
            --count 300 --seed 1)
  set_tests_properties(tools_shell_drive/RoughHandlingInATerminal PROPERTIES TIMEOUT ${BT_TEST_TIMEOUT})
endif()

if(BT_RUNS_WHAT_IT_BUILDS AND NOT CMAKE_CROSSCOMPILING)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  foreach(test IsMadeFromTheCommandsOfThisBuild IsAScriptOfItsShell OfBashOffersEveryCommandAndOption
          OfBashOffersTheWordsOfValues OfZshOffersTheSameAsThatOfBash OfZshSaysWhatAnArgumentIs WorksWhileSomebodyTypes
          KnowsANewCommandAndANewWordByItself)
    add_test(NAME tools_shell_completion/${test}
      COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/shell_completion_test.py ${CMAKE_SOURCE_DIR}
              ${CMAKE_BINARY_DIR} TheCompletion.test_${test})
    set_tests_properties(tools_shell_completion/${test} PROPERTIES TIMEOUT ${BT_TEST_TIMEOUT})
  endforeach()
endif()
