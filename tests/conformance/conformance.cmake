# What every service has to do, whatever its stack: driven by the library alone, with a phone that does what people and
# networks do. Here with the simulation; BTCONFORMANCE_SERVICE, _PHONE_NAME, _PHONE_PATH, _LACKS and _PATIENCE name
# another. Without either, the tests are skipped.
bt_add_test(NAME conformance
  SOURCES Car.cpp Patience.cpp Phone.cpp calls_test.cpp content_test.cpp events_test.cpp pairing_test.cpp power_test.cpp
          restart_test.cpp ../contract/Witness.cpp
  LIBS bt_test_derived
  LABELS conformance)
target_compile_definitions(conformance PRIVATE BTTEST_WITNESS="${CMAKE_SOURCE_DIR}/tests/contract/witness.txt")
if(BT_BUILD_SIMULATION)
  target_compile_definitions(conformance PRIVATE
    BTCONFORMANCE_WORLD="${CMAKE_SOURCE_DIR}/tests/service/everything.json")
  add_dependencies(conformance btservice)
endif()

# A service with another stack passes what that stack can do, on the same bus without anybody who moves a phone.
set(conformance_of_power_only PowerTest.GoesOffAndOn
    PowerTest.IsKnownToAnApplicationThatStopsTheLibraryAndStartsItAgain RestartTest.OneThatIsBackTakesRequestsAgain)
list(JOIN conformance_of_power_only ":" conformance_filter)
add_test(NAME conformance_of_power_only_service/PassesWhatItsStackCanDo
  COMMAND ${CMAKE_COMMAND} -E env "BTCONFORMANCE_SERVICE=$<TARGET_FILE:power_only_service> --no-state"
          $<TARGET_FILE:conformance> --gtest_filter=${conformance_filter})
set_tests_properties(conformance_of_power_only_service/PassesWhatItsStackCanDo PROPERTIES
  TIMEOUT ${BT_TEST_TIMEOUT} LABELS conformance FAIL_REGULAR_EXPRESSION "SKIPPED|0 tests ran")
add_dependencies(conformance power_only_service)
