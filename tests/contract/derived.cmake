# bt_test_derived: what tests need to know of the interface and of the public headers, derived from these (derive.py says
# what). Whoever links it can include derived/NAME.inc.
set(interface ${CMAKE_SOURCE_DIR}/ipc/D-Bus/com.zelk.linux.bluetooth.xml)
set(include_derived ${CMAKE_BINARY_DIR}/tests/contract)
set(derived ${include_derived}/derived)
file(GLOB public_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/bluetooth/*.h)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_custom_command(
  OUTPUT ${derived}/methods.inc ${derived}/requests.inc ${derived}/offers.inc ${derived}/events.inc
         ${derived}/listeners.inc
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/derive.py ${interface} ${CMAKE_SOURCE_DIR}/include
          ${CMAKE_CURRENT_LIST_DIR}/witness.txt ${derived}
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/derive.py ${CMAKE_CURRENT_LIST_DIR}/witness.txt ${interface} ${public_headers}
  COMMENT "Deriving the cases of the contract's tests"
  VERBATIM)
add_custom_target(bt_test_derived_lists DEPENDS ${derived}/methods.inc)
add_library(bt_test_derived INTERFACE)
target_include_directories(bt_test_derived INTERFACE ${include_derived})
add_dependencies(bt_test_derived bt_test_derived_lists)
