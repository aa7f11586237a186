# Events on their way to the listeners, and requests on theirs from the facades to the service.

bt_add_test(NAME contract_events
  SOURCES events_delivery_test.cpp events_fixture.cpp events_log_test.cpp events_spp_test.cpp
          events_subscription_test.cpp
  LIBS bt_test_contract)
bt_add_test(NAME contract_fanout
  SOURCES EventCases.cpp fanout_changes_test.cpp fanout_kinds_test.cpp fanout_lock_test.cpp)
