#libbtasync : against the recording service, and against the simulated one.
bt_add_test(NAME async_test SOURCES basics_test.cpp fake_test.cpp lists_test.cpp LIBS btasync_testing btasync LABELS async)
include(${CMAKE_CURRENT_LIST_DIR}/contract.cmake)
