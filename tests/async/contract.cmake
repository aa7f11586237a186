# The contract of libbtasync with the service and with applications.

# What the headers of libbtasync declare, as tables for the tests (derive.py says what).
set(async_derived ${CMAKE_BINARY_DIR}/tests/async/derived)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_custom_command(
  OUTPUT ${async_derived}/async_requests.inc ${async_derived}/async_events.inc ${async_derived}/async_fields.inc
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/derive.py ${CMAKE_SOURCE_DIR} ${async_derived}
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/derive.py ${CMAKE_CURRENT_LIST_DIR}/sources.py
          ${CMAKE_SOURCE_DIR}/ipc/D-Bus/com.zelk.linux.bluetooth.xml ${CMAKE_SOURCE_DIR}/include/btasync/Service.h
          ${CMAKE_SOURCE_DIR}/include/btasync/Events.h ${CMAKE_SOURCE_DIR}/libbtasync/EventKinds.cpp
  COMMENT "Deriving the cases of libbtasync's tests"
  VERBATIM)
add_custom_target(bt_test_async_lists DEPENDS ${async_derived}/async_requests.inc)
add_library(bt_test_async STATIC async/EventTable.cpp async/RequestTable.cpp)
add_dependencies(bt_test_async bt_test_async_lists)
target_include_directories(bt_test_async PRIVATE ${CMAKE_BINARY_DIR}/tests/async)
target_link_libraries(bt_test_async PUBLIC btasync bt_test_contract PRIVATE bt_warnings GTest::gtest)
target_precompile_headers(bt_test_async REUSE_FROM bt_test_headers)
bt_add_test(NAME async_contract SOURCES events_test.cpp requests_test.cpp LIBS bt_test_async LABELS async)

add_test(NAME async_coverage/EachMethodAndEachSignalIsUsedOnce
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/coverage_test.py ${CMAKE_SOURCE_DIR})
