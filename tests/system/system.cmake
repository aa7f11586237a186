# How the library behaves as a whole: with a bus and a second process, or without, and in good worlds and bad.
bt_add_test(NAME system_lifecycle SOURCES lifecycle_test.cpp address_space_test.cpp after_destroy_test.cpp
            app_manager_locks_test.cpp app_manager_test.cpp connecting_by_hand_test.cpp destroy_locks_test.cpp
            set_power_test.cpp LABELS memcheck)
bt_add_test(NAME system_construction SOURCES construction_test.cpp LABELS memcheck)
bt_add_test(NAME system_connect SOURCES connect_test.cpp log_fallback_test.cpp LABELS memcheck)
target_compile_definitions(system_connect PRIVATE BTTEST_RECORDER="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/bt_recorder")
bt_add_test(NAME system_connect_retry SOURCES connect_retry_test.cpp ProxyAttempts.cpp LIBS ${CMAKE_DL_LIBS}
            LABELS memcheck)
bt_add_test(NAME system_bus_exit SOURCES bus_exit_test.cpp FakeBus.cpp ProxyAttempts.cpp LIBS ${CMAKE_DL_LIBS}
            LABELS memcheck)
bt_add_test(NAME system_bad_worlds SOURCES lost_bus_test.cpp failing_service_test.cpp restarted_service_test.cpp
            odd_segments_test.cpp LABELS memcheck)
bt_add_test(NAME system_threads SOURCES loops_and_threads_test.cpp throwing_listener_test.cpp LABELS memcheck)

# An application as its users build it: the library and its public headers. GLib is for its main loop.
add_executable(listening_client system/listening_client.cpp)
target_include_directories(listening_client PRIVATE ${CMAKE_SOURCE_DIR})
target_link_libraries(listening_client PRIVATE bt PkgConfig::GIO bt_warnings)
bt_add_test(NAME system_two_clients SOURCES two_clients_test.cpp LABELS memcheck)
target_compile_definitions(system_two_clients PRIVATE
  BTTEST_LISTENING_CLIENT="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/listening_client")
add_dependencies(system_two_clients listening_client)
bt_add_test(NAME system_concurrency SOURCES concurrent_client_test.cpp concurrent_events_test.cpp
            concurrent_requests_test.cpp tsan_options.cpp LABELS concurrency memcheck SEPARATE)
bt_add_test(NAME system_memory SOURCES memory_test.cpp LABELS memcheck)
bt_add_test(NAME system_smallest_stack SOURCES smallest_stack_test.cpp LABELS memcheck)
target_compile_definitions(system_smallest_stack PRIVATE
  BTTEST_POWER_ONLY_SERVICE="$<TARGET_FILE:power_only_service>")
add_dependencies(system_smallest_stack power_only_service)
if(BT_BUILD_SIMULATION)
  bt_add_test(NAME system_service_values SOURCES service_values_test.cpp LABELS memcheck)
  target_compile_definitions(system_service_values PRIVATE
    BTTEST_WORLD="${CMAKE_CURRENT_LIST_DIR}/service_values_world.json")
  add_dependencies(system_service_values btservice)
endif()

# What script/valgrind has to find, which is what the test shows. They are no tests by themselves.
if(BT_VALGRIND AND NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  add_executable(planted_leak system/planted_leak.cpp)
  target_link_libraries(planted_leak PRIVATE bt_test_support bt_warnings)
  target_precompile_headers(planted_leak REUSE_FROM bt_test_headers)
  add_dependencies(tests_memcheck planted_leak)
  cmake_path(GET CMAKE_BINARY_DIR FILENAME preset)
  add_test(NAME system_valgrind/APlantedLeakIsFoundInATestAndInAProcessThatItStarts
    COMMAND ${CMAKE_SOURCE_DIR}/script/valgrind --preset ${preset} --no-build --prove)
  set_tests_properties(system_valgrind/APlantedLeakIsFoundInATestAndInAProcessThatItStarts PROPERTIES TIMEOUT 300)
endif()
