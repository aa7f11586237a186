# A long drive, run fast: many processes for a long time, and what becomes of them.
if(NOT BT_BUILD_SIMULATION)
  return()
endif()

# An application as its users build it: the library and its public headers. GLib is for its main loop.
add_executable(drive_client drive/drive_client.cpp)
target_include_directories(drive_client PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(drive_client PRIVATE bt bt_test_derived PkgConfig::GIO bt_warnings)

bt_add_test(NAME drive_test
  SOURCES BusWitness.cpp DriveClient.cpp drive_test.cpp ../service/running_service.cpp
  LABELS drive system)
target_compile_definitions(drive_test PRIVATE
  BTTEST_DRIVE_CLIENT="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/drive_client"
  BTTEST_DRIVE_WORLD="${CMAKE_CURRENT_LIST_DIR}/drive.json")
add_dependencies(drive_test btservice drive_client)
