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
    pairing_screen_test.cpp
  LIBS btasync_testing btasync
  LABELS async)
bt_add_test(NAME async_corpus
  SOURCES lists_corpus_test.cpp ../fuzz/Expectation.cpp ../fuzz/GuardedMemory.cpp ../fuzz/Records.cpp
  LIBS btasync
  LABELS async fuzz)
target_compile_definitions(async_corpus PRIVATE BTTEST_LIST_CORPUS="${CMAKE_SOURCE_DIR}/tests/fuzz/corpus/lists")
# The lists that a thread of GLib's decodes. It is run under ThreadSanitizer too.
bt_add_test(NAME async_race
  SOURCES lists_race_test.cpp ../system/tsan_options.cpp
  LIBS btasync
  LABELS async concurrency)
if(BT_BUILD_SIMULATION)
  bt_add_test(NAME async_simulated SOURCES lists_simulated_test.cpp ../fuzz/Records.cpp LIBS btasync LABELS async)
  target_compile_definitions(async_simulated PRIVATE
    BTTEST_WORLD="${CMAKE_SOURCE_DIR}/tests/system/service_values_world.json"
    BTTEST_BIG_WORLD="${CMAKE_SOURCE_DIR}/service/simulation/worlds/big-phonebook.json")
  add_dependencies(async_simulated btservice)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/contract.cmake)
