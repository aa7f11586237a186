# A recording Bluetooth service: a process of its own, driven by the tests, that knows of the interface only what
# the XML says and the names on the bus, and shares no code with the library or with btservice.
add_executable(bt_recorder
  recorder/RecorderControl.cpp
  recorder/RecordingService.cpp
  recorder/ZeroValue.cpp
  recorder/main.cpp)
target_include_directories(bt_recorder PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_LIST_DIR}/..)
target_link_libraries(bt_recorder PRIVATE PkgConfig::GIO bt_warnings)
target_compile_definitions(bt_recorder PRIVATE
  BT_INTERFACE_XML="${CMAKE_SOURCE_DIR}/ipc/D-Bus/com.zelk.linux.bluetooth.xml"
  RECORDER_INTERFACE_XML="${CMAKE_CURRENT_LIST_DIR}/test.Recorder.xml")
