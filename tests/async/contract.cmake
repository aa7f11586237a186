# The contract of libbtasync with the service and with applications.

# What the headers of libbtasync declare, as tables for the tests (derive.py says what).
set(async_derived ${CMAKE_BINARY_DIR}/tests/async/derived)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_custom_command(
  OUTPUT ${async_derived}/async_requests.inc ${async_derived}/async_events.inc ${async_derived}/async_fields.inc
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/derive.py ${CMAKE_SOURCE_DIR} ${async_derived}
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/derive.py ${CMAKE_CURRENT_LIST_DIR}/sources.py
          ${CMAKE_SOURCE_DIR}/ipc/D-Bus/com.zelk.linux.bluetooth.xml ${CMAKE_SOURCE_DIR}/include/btasync/Service.h
          ${CMAKE_SOURCE_DIR}/include/btasync/Events.h ${CMAKE_SOURCE_DIR}/libbtasync/event_kinds.py
  COMMENT "Deriving the cases of libbtasync's tests"
  VERBATIM)
add_custom_target(bt_test_async_lists DEPENDS ${async_derived}/async_requests.inc)
add_library(bt_test_async STATIC async/EventTable.cpp async/RequestTable.cpp)
add_dependencies(bt_test_async bt_test_async_lists)
target_include_directories(bt_test_async PRIVATE ${CMAKE_BINARY_DIR}/tests/async)
target_link_libraries(bt_test_async PUBLIC btasync bt_test_contract PRIVATE bt_warnings GTest::gtest)
target_precompile_headers(bt_test_async REUSE_FROM bt_test_headers)
bt_add_test(NAME async_contract SOURCES events_test.cpp requests_test.cpp LIBS bt_test_async LABELS async)
bt_add_test(NAME async_parity SOURCES parity_test.cpp LIBS bt_test_async LABELS async)
if(BT_BUILD_SIMULATION)
  target_compile_definitions(async_parity PRIVATE BTTEST_PARITY_WORLD="${CMAKE_CURRENT_LIST_DIR}/parity_world.json")
  add_dependencies(async_parity btservice)
endif()

bt_add_source_test(NAME async_coverage/EachMethodAndEachSignalIsUsedOnce
  Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/coverage_test.py ${CMAKE_SOURCE_DIR})
bt_add_source_test(NAME async_public_headers/EachCompilesOnItsOwnAndNeedsNothingButTheStandardLibrary
  Python3::Interpreter ${CMAKE_SOURCE_DIR}/tests/contract/public_headers_test.py ${CMAKE_CXX_COMPILER}
          ${CMAKE_SOURCE_DIR}/include btasync c++17 Coroutine.h=c++20)
bt_add_source_test(NAME async_documents/SayWhatTheSourcesSay
  Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/documents_test.py ${CMAKE_CXX_COMPILER} ${CMAKE_SOURCE_DIR})
bt_add_source_test(NAME async_wrong_types/DoNotCompile
  Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/wrong_types_test.py ${CMAKE_CXX_COMPILER} ${CMAKE_SOURCE_DIR}
          ${CMAKE_BINARY_DIR}/libbtasync/generated ${GIO_INCLUDE_DIRS})
if(NOT BT_SANITIZE)  # which adds names of its own
  add_test(NAME async_exports/TheLibraryExportsItsHeadersAndNothingThatLibbtDoes
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/exports_test.py $<TARGET_FILE:btasync> $<TARGET_FILE:bt>
            ${CMAKE_SOURCE_DIR})
endif()
add_test(NAME async_soname/TheLibraryIsLibbtasyncSo010WithTheSonameLibbtasyncSo0
  COMMAND sh -c "test -f $<TARGET_FILE_DIR:btasync>/libbtasync.so.0.1.0 \
             && readelf -d $<TARGET_FILE:btasync> | grep -q 'SONAME.*\\[libbtasync\\.so\\.0\\]'")

# A list for each size of a pointer: this build's, and that of the head unit.
bt_add_source_test(NAME async_layout/IsThatOfTheList
  Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/layout.py ${CMAKE_CXX_COMPILER} ${CMAKE_SOURCE_DIR})
find_program(BT_ARMHF_CXX arm-linux-gnueabihf-g++)
mark_as_advanced(BT_ARMHF_CXX)
if(BT_ARMHF_CXX)
  bt_add_source_test(NAME async_layout/IsThatOfTheListOn32BitArm
    Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/layout.py ${BT_ARMHF_CXX} ${CMAKE_SOURCE_DIR})
endif()
