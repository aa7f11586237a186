find_package(Python3 REQUIRED COMPONENTS Interpreter)

# Runs every command of the documents as it is written there, with what this build has made.
if(BT_BUILD_SIMULATION AND BT_BUILD_TOOLS AND NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  foreach(test WhatIsRun TheDemo TheHeadUnit TheSandbox TheService TheCommandLine TheInstallation)
    add_test(NAME documents/${test}
      COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/documents_test.py ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}
              ${test})
    # COST: it begins before the short ones. Skipped: what it runs is not built.
    set_tests_properties(documents/${test} PROPERTIES TIMEOUT 300 COST 60 SKIP_RETURN_CODE 77)
  endforeach()
endif()

# The guides of the screens: each program in them is built as it is written there, and run as its session shows.
if(BT_BUILD_SIMULATION AND BT_BUILD_TOOLS AND BT_BUILD_ASYNC AND NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  pkg_check_modules(GLIB REQUIRED IMPORTED_TARGET glib-2.0)
  file(GLOB guides CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/screens/*.md)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${guides})
  set(screens ${CMAKE_CURRENT_BINARY_DIR}/screens)
  execute_process(
    COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/take_programs.py ${screens} ${guides}
    OUTPUT_VARIABLE programs OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "\n" ";" programs "${programs}")
  foreach(program IN LISTS programs)
    add_executable(screen_${program} ${screens}/${program}.cpp)
    set_target_properties(screen_${program} PROPERTIES OUTPUT_NAME ${program} RUNTIME_OUTPUT_DIRECTORY ${screens}/bin)
    target_include_directories(screen_${program} PRIVATE ${CMAKE_SOURCE_DIR}/docs/screens)
    if(program MATCHES "_libbt$")  # for applications that there are: C++11
      target_link_libraries(screen_${program} PRIVATE bt::bt)
      set_target_properties(screen_${program} PROPERTIES CXX_STANDARD 11)
    else()
      target_link_libraries(screen_${program} PRIVATE bt::async)
    endif()
    target_link_libraries(screen_${program} PRIVATE PkgConfig::GLIB Threads::Threads bt_warnings)
  endforeach()
  foreach(guide IN LISTS guides)
    get_filename_component(guide ${guide} NAME_WE)
    add_test(NAME documents/screens_${guide}
      COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/screens_test.py ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}
              ${screens}/bin ${guide})
    set_tests_properties(documents/screens_${guide} PROPERTIES TIMEOUT 300)
  endforeach()
endif()

# What docs/writing-a-service.md says of segments, records and settings.
bt_add_source_test(NAME documents/ThePageForServicesSaysWhatTheHeadersSay
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/service_page_test.py ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR} ThePage)
if(BT_BUILD_SIMULATION AND BT_BUILD_TOOLS AND NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  add_test(NAME documents/TheSegmentsHoldWhatThePageForServicesShows
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/service_page_test.py ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}
            TheSegments)
endif()

# What SECURITY.md says of each reader is what a test shows.
bt_add_source_test(NAME documents/EachTestThatSecurityNamesIsThere
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/security_test.py ${CMAKE_SOURCE_DIR})
bt_add_source_test(NAME documents/EachFailureIsHeldByATest
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/failures_test.py ${CMAKE_SOURCE_DIR})
bt_add_source_test(NAME documents/EachNameIsInTheHeaders
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/names_test.py ${CMAKE_SOURCE_DIR})
bt_add_source_test(NAME documents/TheChangelogHasItsForm
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/changelog_test.py ${CMAKE_SOURCE_DIR})

# The site, which script/docs makes of the texts, the headers and the descriptions. Nothing has to be built for it.
foreach(test TheSite.test_IsMadeOfAllTextsHeadersAndDescriptions TheSite.test_FailsOnWhatIsWrongInATextAndNamesIt
        TheSite.test_FailsOnWhatAPageWouldLoadOrMissAndNamesIt TheSite.test_FailsOnATextThatNoListOfContentsNames
        TheSite.test_FailsOnACommentThatDoesNotFitItsDeclaration TheCheckOfPages TheEvents)
  string(REPLACE ".test_" "" name ${test})
  bt_add_source_test(NAME documents/${name}
    Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/site_test.py ${CMAKE_SOURCE_DIR} ${test})
  if(TEST documents/${name})
    # Skipped: its packages are not installed.
    set_tests_properties(documents/${name} PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77)
  endif()
endforeach()
