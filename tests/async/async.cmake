# libbtasync: against the recording service, the simulated one, and the one in memory.
bt_add_test(NAME async_test
  SOURCES
    basics_test.cpp
    fake_test.cpp
    lists_lives_test.cpp
    lists_test.cpp
    lists_wrong_test.cpp
    mirror_test.cpp
    outcome_table_test.cpp
    outcome_test.cpp
  LIBS btasync_testing btasync
  LABELS async)
include(${CMAKE_CURRENT_LIST_DIR}/contract.cmake)
