# What every service has to do, whatever its stack: driven by the library alone, with a phone that does what people and
# networks do. Here with the simulation; BTCONFORMANCE_SERVICE, _PHONE_NAME, _PHONE_PATH and _PATIENCE name another.
if(NOT BT_BUILD_SIMULATION)
  return()
endif()
bt_add_test(NAME conformance
  SOURCES Car.cpp Patience.cpp Phone.cpp calls_test.cpp content_test.cpp events_test.cpp pairing_test.cpp power_test.cpp
          restart_test.cpp ../contract/Witness.cpp
  LIBS bt_test_derived
  LABELS conformance)
target_compile_definitions(conformance PRIVATE
  BTTEST_WITNESS="${CMAKE_SOURCE_DIR}/tests/contract/witness.txt"
  BTCONFORMANCE_WORLD="${CMAKE_SOURCE_DIR}/tests/service/everything.json")
add_dependencies(conformance btservice)
