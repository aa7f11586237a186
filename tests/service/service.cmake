bt_add_test(NAME service_model_test
  SOURCES time_test.cpp adapter_model_test.cpp pairing_model_test.cpp connection_model_test.cpp
  LIBS btservice_model
  LABELS service)
