# The readers of the lists against what a service should not write, and against random lists.
add_library(bt_fuzz_support OBJECT
  fuzz/Expectation.cpp
  fuzz/GuardedMemory.cpp
  fuzz/ListChecks.cpp
  fuzz/ListPacker.cpp
  fuzz/ListWorld.cpp
  fuzz/LogCount.cpp
  fuzz/QuietService.cpp
  fuzz/Records.cpp)
target_include_directories(bt_fuzz_support PUBLIC ${CMAKE_CURRENT_LIST_DIR}/..)
target_link_libraries(bt_fuzz_support PUBLIC bt_internal PRIVATE bt_warnings)
target_compile_options(bt_fuzz_support PRIVATE -O2)  # these run for longer than they compile

bt_add_test(NAME fuzz_test
  SOURCES
    mutated_segments_test.cpp
    racing_writer_test.cpp
    round_trip_test.cpp
  LIBS bt_fuzz_support
  LABELS fuzz)
target_compile_options(fuzz_test PRIVATE -O2)
set_target_properties(fuzz_test PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)  # which are not optimised
target_compile_definitions(fuzz_test PRIVATE BTTEST_LIST_CORPUS="${CMAKE_CURRENT_LIST_DIR}/corpus/lists")
if(BT_BUILD_ASYNC)
  target_sources(fuzz_test PRIVATE fuzz/decoder_test.cpp fuzz/DecoderChecks.cpp
                                   ${CMAKE_SOURCE_DIR}/libbtasync/SegmentDecoder.cpp)
endif()
