# Rough handling of the service: files that are bent, and odd calls of its controls and of its own methods. A fixed
# seed and few cases here; by hand, files_test.py and calls_test.py take --count and --seed for more.
if(BT_TEST_SERVICE AND BT_BUILD_SIMULATION)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(rough ${CMAKE_SOURCE_DIR}/script/sandbox --service $<TARGET_FILE:btservice> dbus-run-session --
            ${Python3_EXECUTABLE})
  file(GLOB worlds CONFIGURE_DEPENDS
     ${CMAKE_SOURCE_DIR}/service/simulation/worlds/*.json ${CMAKE_CURRENT_LIST_DIR}/../service/*.json)
  list(FILTER worlds EXCLUDE REGEX "schema\\.json$")
  set(interfaces ${CMAKE_SOURCE_DIR}/service/simulation/com.zelk.linux.bluetooth.sim.xml
                 ${CMAKE_SOURCE_DIR}/ipc/D-Bus/com.zelk.linux.bluetooth.xml)
  set(limits --memory 1024 --bound 20)
  if(BT_SANITIZE OR CMAKE_CROSSCOMPILING)
    set(limits --memory 0 --bound 60) # a sanitizer keeps what was freed, an emulator has memory of its own; both are slow
  endif()

  math(EXPR timeout "4 * ${BT_TEST_TIMEOUT}")

  add_test(NAME rough/BentFilesAreRefusedOrServed
    COMMAND ${rough} ${CMAKE_CURRENT_LIST_DIR}/files_test.py --count 120 ${limits} ${worlds})
  add_test(NAME rough/OddCallsAreAnswered
    COMMAND ${rough} ${CMAKE_CURRENT_LIST_DIR}/calls_test.py --count 600 ${limits} ${interfaces} ${worlds})
  add_test(NAME rough/OddRequestsAreAnswered
    COMMAND ${rough} ${CMAKE_CURRENT_LIST_DIR}/calls_test.py --requests --count 600 ${limits} ${interfaces}
            ${worlds})
  set_tests_properties(rough/BentFilesAreRefusedOrServed rough/OddCallsAreAnswered
                       rough/OddRequestsAreAnswered PROPERTIES
    TIMEOUT ${timeout} SKIP_RETURN_CODE 77 LABELS service)
endif()
