# The stand-in of the platform. The real one, and the real zlog, are not ours to test.
if(NOT TARGET mwpplatform OR ZLOG_LIBRARY)
  return()
endif()

function(bt_add_platform_test name)
  # Absolute, because this file is included from elsewhere.
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/)
  bt_add_test(NAME ${name} SOURCES ${ARGN} LIBS mwp::platform)
  if(BT_COVERAGE)
    # Its copies of the inline functions of the platform's headers take the place of the library's own.
    target_compile_options(${name} PRIVATE --coverage -fprofile-update=atomic)
    set_target_properties(${name} PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
  endif()
endfunction()

bt_add_platform_test(platform_app_manager_test platform_app_manager_test.cpp)
bt_add_platform_test(platform_configs_test platform_configs_test.cpp)
bt_add_platform_test(platform_mutex_test platform_mutex_test.cpp)
bt_add_platform_test(platform_persist_test platform_persist_test.cpp)
bt_add_platform_test(platform_persist_concurrency_test platform_persist_concurrency_test.cpp)
bt_add_platform_test(platform_persist_durability_test platform_persist_durability_test.cpp)
bt_add_platform_test(platform_persist_home_test platform_persist_home_test.cpp)
bt_add_platform_test(platform_source_test platform_source_test.cpp)
bt_add_platform_test(platform_log_test platform_log_test.cpp)
bt_add_platform_test(platform_log_choice_test platform_log_choice_test.cpp)

target_compile_definitions(platform_configs_test PRIVATE
  PLATFORM_BUILT_DEFAULTS="${CMAKE_BINARY_DIR}/etc/libbt/defaults.ini"
  PLATFORM_DEFAULTS_FILE="${BT_PLATFORM_DIR}/defaults.ini")
target_link_libraries(platform_persist_durability_test PRIVATE ${CMAKE_DL_LIBS})

add_executable(platform_log_program ${CMAKE_CURRENT_LIST_DIR}/platform_log_program.cpp)
target_link_libraries(platform_log_program PRIVATE mwp::platform bt_warnings)
add_dependencies(platform_log_choice_test platform_log_program)
target_compile_definitions(platform_log_choice_test PRIVATE
  PLATFORM_LOG_PROGRAM="$<TARGET_FILE:platform_log_program>")

add_executable(platform_place_program ${CMAKE_CURRENT_LIST_DIR}/platform_place_program.cpp)
target_link_libraries(platform_place_program PRIVATE mwp::platform bt_warnings ${CMAKE_DL_LIBS})
add_dependencies(platform_configs_test platform_place_program)
target_compile_definitions(platform_configs_test PRIVATE
  PLATFORM_PLACE_PROGRAM="$<TARGET_FILE:platform_place_program>")
