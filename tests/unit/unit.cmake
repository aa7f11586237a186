bt_add_test(NAME unit_types SOURCES types_test.cpp record_layout_test.cpp address_test.cpp)
bt_add_test(NAME unit_owned SOURCES owned_test.cpp owned_id_test.cpp SEPARATE)
bt_add_test(NAME unit_protocol SOURCES list_writer_test.cpp LIBS bt_protocol)
bt_add_test(NAME unit_variant SOURCES variant_test.cpp)
bt_add_test(NAME unit_registry SOURCES registry_test.cpp)
bt_add_test(NAME unit_listener SOURCES listener_test.cpp)
bt_add_test(NAME unit_segments SOURCES segments_test.cpp)
bt_add_test(NAME unit_segment_teardown SOURCES segment_teardown_test.cpp LIBS ${CMAKE_DL_LIBS})
bt_add_test(NAME unit_small_identifiers
  SOURCES small_identifiers_test.cpp ../../ipc/ShareMemory/SmallIdentifiers.cpp LIBS ${CMAKE_DL_LIBS})
bt_add_test(NAME unit_attach_failure SOURCES attach_failure_test.cpp)
bt_add_test(NAME unit_settings SOURCES settings_test.cpp)
find_package(nlohmann_json REQUIRED)
bt_add_test(NAME unit_bench_report SOURCES bench_report_test.cpp ../../bench/harness/Report.cpp
            LIBS nlohmann_json::nlohmann_json)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
bt_add_source_test(NAME unit_mutate/FaultsAreWhatTheHelpOfScriptMutateSays
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/mutate_test.py ${CMAKE_SOURCE_DIR})
