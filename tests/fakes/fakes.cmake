# Stand-ins for the Bluetooth daemons of Linux: a process of its own on a bus of the test's, that knows of them only
# what the XML here says, and shares no code with btservice.
set(fakes_dir ${CMAKE_BINARY_DIR}/tests/fakes)
set(fakes_xml ${CMAKE_CURRENT_LIST_DIR}/org.bluez.xml ${CMAKE_CURRENT_LIST_DIR}/test.FakeBluez.xml)
file(MAKE_DIRECTORY ${fakes_dir})
add_custom_command(
  OUTPUT ${fakes_dir}/bt_fakes.c ${fakes_dir}/bt_fakes.h
  COMMAND ${GDBUS_CODEGEN} --generate-c-code bt_fakes --interface-prefix org.bluez. --c-namespace Fakes
          --output-directory ${fakes_dir} ${fakes_xml}
  DEPENDS ${fakes_xml}
  COMMENT "Generating the D-Bus bindings of the fake daemons"
  VERBATIM)
add_library(bt_fakes_generated STATIC ${fakes_dir}/bt_fakes.c ${fakes_dir}/bt_fakes.h)
target_include_directories(bt_fakes_generated SYSTEM PUBLIC ${fakes_dir})
target_link_libraries(bt_fakes_generated PUBLIC PkgConfig::GIO)

add_executable(bt_fakes fakes/AnswerRules.cpp fakes/FakeAdapter.cpp fakes/FakeBluez.cpp fakes/FakeDevice.cpp
               fakes/main.cpp)
target_include_directories(bt_fakes PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_LIST_DIR}/..)
target_link_libraries(bt_fakes PRIVATE bt_fakes_generated bt_warnings)
