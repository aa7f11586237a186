# How the library behaves as a whole: with a bus and a second process, or without, and in good worlds and bad.
bt_add_test(NAME system_lifecycle SOURCES lifecycle_test.cpp app_manager_test.cpp after_destroy_test.cpp)
bt_add_test(NAME system_construction SOURCES construction_test.cpp)
bt_add_test(NAME system_connect SOURCES connect_test.cpp log_fallback_test.cpp)
target_compile_definitions(system_connect PRIVATE BTTEST_RECORDER="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/bt_recorder")
bt_add_test(NAME system_connect_retry SOURCES connect_retry_test.cpp LIBS ${CMAKE_DL_LIBS})
bt_add_test(NAME system_bad_worlds SOURCES lost_bus_test.cpp)
