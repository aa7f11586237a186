# The stack over BlueZ: the real process btservice --stack bluez, with fakes of the daemons on a system bus of the
# test's own.
include(fakes/fakes.cmake)

bt_add_test(NAME bluez_test
  SOURCES
    FakeDaemons.cpp
    daemon_test.cpp
    lookup_test.cpp
    nonsense_test.cpp
    power_test.cpp
    search_test.cpp
    stack_option_test.cpp
    start_test.cpp
    ../recorder/ZeroValue.cpp
    ../service/running_service.cpp
  LIBS btservice_bluez
  LABELS bluez service)
target_compile_definitions(bluez_test PRIVATE
  BTTEST_FAKES="$<TARGET_FILE:bt_fakes>"
  $<$<BOOL:${BT_BUILD_SIMULATION}>:BTTEST_HAS_SIMULATION>)
add_dependencies(bluez_test btservice bt_fakes)

# The library, over the same.
bt_add_test(NAME bluez_library_test
  SOURCES FakeDaemons.cpp library_test.cpp ../conformance/Car.cpp ../conformance/Patience.cpp ../conformance/Phone.cpp
          ../contract/Witness.cpp
  LIBS bt_test_derived
  LABELS bluez service)
target_compile_definitions(bluez_library_test PRIVATE
  BTTEST_FAKES="$<TARGET_FILE:bt_fakes>" BTTEST_WITNESS="${CMAKE_SOURCE_DIR}/tests/contract/witness.txt")
add_dependencies(bluez_library_test btservice bt_fakes)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME bluez_objects/NothingInTheStackWaitsForADaemon
  COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/no_waiting_test.py $<TARGET_FILE:btservice_bluez>)
set_tests_properties(bluez_objects/NothingInTheStackWaitsForADaemon PROPERTIES LABELS "bluez;service")
