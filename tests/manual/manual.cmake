# The manual pages as readers and their programs find them, where all of them are made.
if(NOT TARGET bt_manual OR NOT TARGET btctl OR NOT TARGET btservice)
  return()
endif()
foreach(test EachHeaderFunctionAndProgramHasOne MandocHasNothingToSay ManHasNothingToSay
        EveryCommandAndOptionIsExplained EveryRequestAndEventIsExplained
        EveryDeclarationOfTheHeadersIsDocumented EveryParameterIsExplained
        EveryValueAndMemberIsNamed TheHelpOfTheServiceIsThere EachReferenceIsThere WhatIsNamedIsInTheSources
        TheExampleIsThatOfTheReadme)
  add_test(NAME manual/${test}
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/manual_test.py ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}
            ThePages.test_${test})
  set_tests_properties(manual/${test} PROPERTIES TIMEOUT ${BT_TEST_TIMEOUT})
endforeach()
