include(${CMAKE_CURRENT_LIST_DIR}/derived.cmake)

add_library(bt_test_contract STATIC contract/AdapterCalls.cpp contract/WireValues.cpp contract/Witness.cpp)
target_compile_definitions(bt_test_contract PRIVATE BTTEST_WITNESS="${CMAKE_CURRENT_LIST_DIR}/witness.txt")
target_link_libraries(bt_test_contract PUBLIC bt_test_derived bt_test_support bt_internal
                                       PRIVATE bt_warnings GTest::gtest)
target_precompile_headers(bt_test_contract REUSE_FROM bt_test_headers)
include(${CMAKE_CURRENT_LIST_DIR}/events.cmake)

bt_add_test(NAME contract_witness SOURCES witness_test.cpp LIBS bt_test_contract)

bt_add_test(NAME contract_requests SOURCES booleans_test.cpp requests_test.cpp LIBS bt_test_contract)
bt_add_test(NAME contract_time_limit SOURCES time_limit_test.cpp LIBS bt_test_contract ${CMAKE_DL_LIBS})
bt_add_test(NAME contract_error_lines SOURCES error_lines_test.cpp LIBS bt_test_contract)
target_compile_definitions(contract_error_lines PRIVATE BTTEST_IPC_SOURCES="${CMAKE_SOURCE_DIR}/ipc")
bt_add_test(NAME contract_requests_memory SOURCES ShortOfMemory.cpp requests_out_of_memory_test.cpp)
bt_add_test(NAME contract_lists SOURCES lists_test.cpp list_memory_test.cpp lists_capacity_test.cpp)
bt_add_test(NAME contract_lists_memory SOURCES ShortOfMemory.cpp lists_out_of_memory_test.cpp)
bt_add_test(NAME contract_missing_texts SOURCES missing_texts_test.cpp)

# Without optimisation, as under the sanitizers, inline functions are exported, too.
if(NOT BT_SANITIZE)
  add_test(NAME contract_exports/TheLibraryExportsWhatTheSourcesSayAndNothingElse
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/exports_test.py $<TARGET_FILE:bt> ${CMAKE_SOURCE_DIR})
endif()
bt_add_source_test(NAME contract_public_headers/EachCompilesOnItsOwnAsCxx11AndNeedsNothingButTheStandardLibrary
  Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/public_headers_test.py ${CMAKE_CXX_COMPILER}
          ${CMAKE_SOURCE_DIR}/include bluetooth c++11)
bt_add_source_test(NAME contract_enumerations/EveryValueFitsInOneByteAndCountingStartsAtZero
  Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/enumerations_test.py ${CMAKE_SOURCE_DIR}/include)
add_test(NAME contract_soname/TheLibraryIsLibbtSo100WithTheSonameLibbtSo1
  COMMAND sh -c "test -f $<TARGET_FILE_DIR:bt>/libbt.so.1.0.0 \
             && readelf -d $<TARGET_FILE:bt> | grep -q 'SONAME.*\\[libbt\\.so\\.1\\]'")

if(BT_BUILD_SIMULATION)
  bt_add_test(NAME contract_interface SOURCES interface_test.cpp)
  add_dependencies(contract_interface btservice)
endif()
