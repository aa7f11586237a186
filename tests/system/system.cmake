# How the library behaves as a whole: with a bus and a second process, or without, and in good worlds and bad.
bt_add_test(NAME system_lifecycle SOURCES lifecycle_test.cpp app_manager_test.cpp after_destroy_test.cpp)
bt_add_test(NAME system_construction SOURCES construction_test.cpp)
