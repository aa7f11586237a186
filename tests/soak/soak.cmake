# Hours of ordinary life in which something goes wrong all the time; script/soak runs it. The test is a short one.
if(NOT BT_BUILD_SIMULATION)
  return()
endif()

# An application as its users build it: the library and its public headers. GLib is for its main loop.
add_executable(soak_client soak/soak_client.cpp soak/EventSequence.cpp soak/Listeners.cpp soak/Requester.cpp
                           soak/Requests.cpp)
target_include_directories(soak_client PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(soak_client PRIVATE bt PkgConfig::GIO Threads::Threads bt_warnings)

add_library(bt_soak_run STATIC soak/EventSequence.cpp soak/Outages.cpp soak/Soak.cpp soak/SoakClient.cpp
                               service/running_service.cpp)
target_link_libraries(bt_soak_run PUBLIC bt_test_support bt_internal PRIVATE bt_warnings)
target_compile_definitions(bt_soak_run PRIVATE
  BTSOAK_CLIENT="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/soak_client"
  BTSOAK_WORLD="${CMAKE_CURRENT_LIST_DIR}/soak.json")
add_dependencies(bt_soak_run btservice soak_client)

add_executable(bt_soak soak/bt_soak.cpp)
target_link_libraries(bt_soak PRIVATE bt_soak_run bt_warnings)
bt_add_test(NAME soak_test SOURCES soak_test.cpp LIBS bt_soak_run)
