#libbtasync : against the recording service, and against the simulated one.
bt_add_test(NAME async_test SOURCES basics_test.cpp LIBS btasync LABELS async)
