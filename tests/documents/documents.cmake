# Runs every command of the documents as it is written there, with what this build has made.
if(BT_BUILD_SIMULATION AND BT_BUILD_TOOLS AND NOT BT_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  foreach(test WhatIsRun TheDemo TheHeadUnit TheSandbox TheService TheCommandLine TheInstallation)
    add_test(NAME documents/${test}
      COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/documents_test.py ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}
              ${test})
    # COST: it begins before the short ones. Skipped: what it runs is not built.
    set_tests_properties(documents/${test} PROPERTIES TIMEOUT 300 COST 60 SKIP_RETURN_CODE 77)
  endforeach()
endif()

# What SECURITY.md says of each reader is what a test shows.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
bt_add_source_test(NAME documents/EachTestThatSecurityNamesIsThere
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/security_test.py ${CMAKE_SOURCE_DIR})
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
