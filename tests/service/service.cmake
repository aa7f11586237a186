bt_add_test(NAME service_model_test
  SOURCES
    adapter_model_test.cpp
    all_events_test.cpp
    browser_model_test.cpp
    call_audio_model_test.cpp
    call_model_test.cpp
    connection_model_test.cpp
    links_model_test.cpp
    music_model_test.cpp
    pairing_model_test.cpp
    phonebook_model_test.cpp
    time_test.cpp
    timeline_test.cpp
    two_calls_model_test.cpp
  LIBS btservice_model
  LABELS service)

bt_add_test(NAME service_files_test
  SOURCES state_file_test.cpp vcard_test.cpp world_file_test.cpp
  LIBS btservice_world btservice_state
  LABELS service)
target_compile_definitions(service_files_test PRIVATE
  BTTEST_WORLD_SCHEMA="${CMAKE_SOURCE_DIR}/service/worlds/world.schema.json")

bt_add_test(NAME service_system_test
  SOURCES
    contract_test.cpp
    control_test.cpp
    packing_test.cpp
    process_test.cpp
    published_segments_test.cpp
    running_service.cpp
    ../recorder/ZeroValue.cpp
  LIBS btservice_segments
  LABELS service system)
target_compile_definitions(service_system_test PRIVATE
  BTTEST_LIBRARY="$<TARGET_FILE:bt>"
  BTTEST_QUIET_WORLD="${CMAKE_CURRENT_LIST_DIR}/quiet.json")
add_dependencies(service_system_test btservice)
