# Events on their way to the listeners, and requests on theirs from the facades to the service.

bt_add_test(NAME contract_events
  SOURCES events_delivery_test.cpp events_fixture.cpp events_log_test.cpp events_spp_test.cpp
          events_subscription_test.cpp
  LIBS bt_test_contract)
bt_add_test(NAME contract_handlers
  SOURCES events_fixture.cpp handlers_test.cpp
  LIBS bt_test_contract ${CMAKE_DL_LIBS})
bt_add_test(NAME contract_events_memory
  SOURCES ShortOfMemory.cpp events_fixture.cpp events_memory_test.cpp
  LIBS bt_test_contract)
bt_add_test(NAME contract_fanout
  SOURCES EventCases.cpp fanout_changes_test.cpp fanout_kinds_test.cpp fanout_lock_test.cpp
          fanout_walks_test.cpp
  LIBS bt_test_contract)

# The client's and the facades' tests share one table of all requests.
add_library(bt_test_requests STATIC
  contract/AskedLibrary.cpp contract/DerivedRequests.cpp contract/RequestCases.cpp contract/RequestCasesBle.cpp
  contract/RequestCasesCom.cpp contract/RequestCasesMedia.cpp contract/RequestCasesMessage.cpp
  contract/RequestCasesPbap.cpp contract/RequestCasesPhone.cpp contract/RequestCasesSpp.cpp)
target_link_libraries(bt_test_requests PUBLIC bt_test_contract PRIVATE bt_warnings GTest::gtest)
target_precompile_headers(bt_test_requests REUSE_FROM bt_test_headers)
bt_add_test(NAME contract_client
  SOURCES client_music_test.cpp client_requests_test.cpp
  LIBS bt_test_requests)
bt_add_test(NAME contract_facades
  SOURCES facades_com_test.cpp facades_pbap_test.cpp facades_requests_test.cpp
  LIBS bt_test_requests)
