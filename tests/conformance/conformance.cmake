# What every service has to do, whatever its stack: driven by the library alone, with a phone that does what people and
# networks do. Here with the simulation; BTCONFORMANCE_SERVICE, _PHONE_NAME, _PHONE_PATH, _LACKS and _PATIENCE name
# another. Without either, the tests are skipped.
bt_add_test(NAME conformance
  SOURCES Car.cpp Patience.cpp Phone.cpp calls_test.cpp content_test.cpp events_test.cpp pairing_test.cpp patience_test.cpp
          power_test.cpp restart_test.cpp ../contract/Witness.cpp
  LIBS bt_test_derived
  LABELS conformance)
target_compile_definitions(conformance PRIVATE BTTEST_WITNESS="${CMAKE_SOURCE_DIR}/tests/contract/witness.txt")
if(BT_BUILD_SIMULATION)
  target_compile_definitions(conformance PRIVATE
    BTCONFORMANCE_WORLD="${CMAKE_SOURCE_DIR}/tests/service/everything.json")
  add_dependencies(conformance btservice)
endif()

# Phones ask for different things when they pair: here neither is paired yet, and both only want a yes or no.
if(BT_BUILD_SIMULATION)
  set(service_of_just_works
    "$<TARGET_FILE:btservice> --no-state --speed 20 --world ${CMAKE_CURRENT_LIST_DIR}/just_works.json")
  foreach(case PairingTest.BothAccept PairingTest.ThePhoneBegins PairingTest.TheDriverRefuses
          PairingTest.AfterOneThatFailedThePhoneIsPaired)
    add_test(NAME conformance_of_just_works/${case}
      COMMAND ${CMAKE_COMMAND} -E env "BTCONFORMANCE_SERVICE=${service_of_just_works}"
              $<TARGET_FILE:conformance> --gtest_filter=${case})
    set_tests_properties(conformance_of_just_works/${case} PROPERTIES
      TIMEOUT ${BT_TEST_TIMEOUT} LABELS conformance FAIL_REGULAR_EXPRESSION "SKIPPED|0 tests ran")
  endforeach()
endif()

# A service with another stack passes what that stack can do, without anybody who moves a phone. Each in a process of
# its own, as all tests.
foreach(case PowerTest.GoesOffAndOn PowerTest.IsKnownToAnApplicationThatStopsTheLibraryAndStartsItAgain
        RestartTest.OneThatIsBackTakesRequestsAgain)
  add_test(NAME conformance_of_power_only_service/${case}
    COMMAND ${CMAKE_COMMAND} -E env "BTCONFORMANCE_SERVICE=$<TARGET_FILE:power_only_service> --no-state"
            $<TARGET_FILE:conformance> --gtest_filter=${case})
  set_tests_properties(conformance_of_power_only_service/${case} PROPERTIES
    TIMEOUT ${BT_TEST_TIMEOUT} LABELS conformance FAIL_REGULAR_EXPRESSION "SKIPPED|0 tests ran")
endforeach()
add_dependencies(conformance power_only_service)

# What cannot be asked of a service is counted, with the reason.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME conformance_left_out/IsCountedWithItsReasons
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/left_out_test.py ${CMAKE_CTEST_COMMAND}
          $<TARGET_FILE:conformance> $<TARGET_FILE:power_only_service> ${CMAKE_CURRENT_LIST_DIR}/../support/left_out.py)
set_tests_properties(conformance_left_out/IsCountedWithItsReasons PROPERTIES
  TIMEOUT ${BT_TEST_TIMEOUT} LABELS conformance)
