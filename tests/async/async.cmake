# libbtasync: against the recording service, the simulated one, and the one in memory.
bt_add_test(NAME async_test
  SOURCES
    basics_test.cpp
    fake_test.cpp
    lists_lives_test.cpp
    lists_test.cpp
    lists_wrong_test.cpp
    mirror_parts_test.cpp
    mirror_test.cpp
    outcome_table_test.cpp
    outcome_test.cpp
    pairing_screen_test.cpp
  LIBS btasync_testing btasync
  LABELS async
  SEPARATE)
# What decides about outcomes is no part of the library's face, and is compiled in.
bt_add_test(NAME async_witness
  SOURCES outcome_witness_test.cpp ${CMAKE_SOURCE_DIR}/libbtasync/OutcomeJudge.cpp
  LIBS btasync
  LABELS async)
bt_add_test(NAME async_corpus
  SOURCES lists_corpus_test.cpp ../fuzz/Expectation.cpp ../fuzz/GuardedMemory.cpp ../fuzz/Records.cpp
  LIBS btasync
  LABELS async fuzz)
target_compile_definitions(async_corpus PRIVATE BTTEST_LIST_CORPUS="${CMAKE_SOURCE_DIR}/tests/fuzz/corpus/lists")
bt_add_test(NAME async_thread SOURCES lists_thread_test.cpp LIBS btasync ${CMAKE_DL_LIBS} LABELS async)
# The lists that a thread of GLib's decodes. It is run under ThreadSanitizer too.
bt_add_test(NAME async_race
  SOURCES lists_race_test.cpp ../system/tsan_options.cpp
  LIBS btasync
  LABELS async concurrency)
if(BT_BUILD_SIMULATION)
  bt_add_test(NAME async_simulated
    SOURCES lists_simulated_test.cpp outcomes_simulated_test.cpp ../fuzz/Records.cpp
    LIBS btasync
    LABELS async)
  target_compile_definitions(async_simulated PRIVATE
    BTTEST_WORLD="${CMAKE_SOURCE_DIR}/tests/system/service_values_world.json"
    BTTEST_BIG_WORLD="${CMAKE_SOURCE_DIR}/service/simulation/worlds/big-phonebook.json")
  add_dependencies(async_simulated btservice)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/contract.cmake)

# Who may be destroyed when, what fails for which reason, and which thread may ask for what.
bt_add_test(NAME async_lives_test LIBS btasync LABELS async concurrency
  SOURCES connection_test.cpp failures_test.cpp lives_test.cpp loops_test.cpp threads_test.cpp)
# The one header in C++20. The headers that other tests precompile are C++17.
bt_add_test(NAME async_coroutine_test SOURCES coroutine_test.cpp LIBS btasync_testing btasync LABELS async)
target_compile_features(async_coroutine_test PRIVATE cxx_std_20)
set_target_properties(async_coroutine_test PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)

bt_add_test(NAME async_walk_test SOURCES walk_test.cpp LIBS btasync_testing btasync LABELS async)
target_compile_features(async_walk_test PRIVATE cxx_std_20)
set_target_properties(async_walk_test PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)

# The same walk under valgrind's memcheck. What GLib never frees is reachable to the end: its types, names and threads.
if(BT_VALGRIND AND NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  add_test(NAME async_memcheck/TheWalkTouchesNothingThatIsGoneAndLeavesNothing
    COMMAND ${CMAKE_COMMAND} -E env BTTEST_IN_SANDBOX=1 BTTEST_WALK_SEED=4 BTTEST_WALK_STEPS=500 G_SLICE=always-malloc
            ${CMAKE_SOURCE_DIR}/script/sandbox --service empty
            ${BT_VALGRIND} --quiet --error-exitcode=9 --num-callers=30 --leak-check=full
            --show-leak-kinds=definite,indirect --errors-for-leak-kinds=definite,indirect
            $<TARGET_FILE:async_walk_test>)
  set_tests_properties(async_memcheck/TheWalkTouchesNothingThatIsGoneAndLeavesNothing PROPERTIES
    TIMEOUT 300 LABELS async)
elseif(NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  # So that it is seen among those that were skipped.
  add_test(NAME async_memcheck/TheWalkTouchesNothingThatIsGoneAndLeavesNothing
    COMMAND ${CMAKE_COMMAND} -E echo "there is no valgrind: script/bootstrap bench installs it")
  set_tests_properties(async_memcheck/TheWalkTouchesNothingThatIsGoneAndLeavesNothing PROPERTIES
    SKIP_REGULAR_EXPRESSION "there is no valgrind" LABELS async)
endif()

find_package(Qt5Core 5.15 QUIET)
if(Qt5Core_FOUND)
  bt_add_test(NAME async_qt_test SOURCES qt_loop_test.cpp LIBS btasync Qt5::Core LABELS async)
  target_compile_definitions(async_qt_test PRIVATE QT_NO_KEYWORDS)  # one of which is a name in GLib's headers
  set_target_properties(async_qt_test PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
endif()
