add_library(bt_model_fixture STATIC service/model_fixture.cpp)
target_link_libraries(bt_model_fixture PUBLIC btservice_model bt_test_support PRIVATE bt_warnings)
target_precompile_headers(bt_model_fixture REUSE_FROM bt_test_headers)

# The requests of the seam, for the test of what becomes of those that a stack does not override.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(service_derived ${CMAKE_BINARY_DIR}/tests/service/derived)
file(MAKE_DIRECTORY ${service_derived})
file(GLOB seam_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/service/stack/*Control.h)
add_custom_command(
  OUTPUT ${service_derived}/seam_requests.inc
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/seam.py ${CMAKE_SOURCE_DIR}/service
          > ${service_derived}/seam_requests.inc
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/seam.py ${seam_headers}
  COMMENT "Deriving the requests of the seam"
  VERBATIM)
add_custom_target(bt_test_seam_lists DEPENDS ${service_derived}/seam_requests.inc)

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
    seam_test.cpp
    time_test.cpp
    timeline_test.cpp
    two_calls_model_test.cpp
  LIBS bt_model_fixture
  LABELS service)
add_dependencies(service_model_test bt_test_seam_lists)
target_include_directories(service_model_test PRIVATE ${service_derived})

bt_add_test(NAME service_files_test
  SOURCES state_file_test.cpp vcard_test.cpp world_file_test.cpp world_limits_test.cpp
  LIBS bt_model_fixture btservice_world btservice_state
  LABELS service)
target_compile_definitions(service_files_test PRIVATE
  BTTEST_WORLD_SCHEMA="${CMAKE_SOURCE_DIR}/service/simulation/worlds/world.schema.json")

bt_add_test(NAME service_pace_test
  SOURCES
    scheduler_test.cpp
    send_queue_test.cpp
    ../../service/app/GLibScheduler.cpp
    ../../service/app/SendQueue.cpp
  LIBS bt_test_support btservice_time
  LABELS service)

bt_add_test(NAME service_system_test
  SOURCES
    addresses_test.cpp
    call_table_test.cpp
    causes_test.cpp
    contract_test.cpp
    control_test.cpp
    left_behind_test.cpp
    overload_test.cpp
    packing_test.cpp
    process_test.cpp
    published_segments_test.cpp
    running_service.cpp
    small_identifiers_test.cpp
    takeover_test.cpp
    ../contract/Witness.cpp
    ../recorder/ZeroValue.cpp
  LIBS btservice_segments
  LABELS service system
  SEPARATE)
target_compile_definitions(service_system_test PRIVATE
  BTTEST_WITNESS="${CMAKE_SOURCE_DIR}/tests/contract/witness.txt"
  BTTEST_LIBRARY="$<TARGET_FILE:bt>"
  BTTEST_FULL_WORLD="${CMAKE_CURRENT_LIST_DIR}/everything.json"
  BTTEST_LISTENING_CLIENT="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/listening_client"
  BTTEST_SERVICE_FILE="$<TARGET_PROPERTY:btservice,BINARY_DIR>/com.zelk.linux.bluetooth.service"
  BTTEST_QUIET_WORLD="${CMAKE_CURRENT_LIST_DIR}/quiet.json")
add_dependencies(service_system_test btservice listening_client)

file(GLOB worlds CONFIGURE_DEPENDS
     ${CMAKE_SOURCE_DIR}/service/simulation/worlds/*.json ${CMAKE_CURRENT_LIST_DIR}/*.json)
bt_add_source_test(NAME service_seam/TheSimulationAnswersEveryRequestByItself LABEL service
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/seam_test.py ${CMAKE_SOURCE_DIR}/service)

add_test(NAME service_world_schema/AnotherValidatorAgreesAboutWorlds
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/world_schema_test.py
          ${CMAKE_SOURCE_DIR}/service/simulation/worlds/world.schema.json ${worlds})
set_tests_properties(service_world_schema/AnotherValidatorAgreesAboutWorlds PROPERTIES
  SKIP_RETURN_CODE 77 LABELS service)
