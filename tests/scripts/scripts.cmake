# What the scripts' help texts and the documents promise about the scripts.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
foreach(promise Help Options UnknownOptions PackagesTakesNoOptionOfCtest Groups Dependencies Sections Documents)
  bt_add_source_test(NAME scripts_help/${promise}
    Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/help_test.py ${CMAKE_SOURCE_DIR} TheHelp.test_${promise})
endforeach()

# The rooms of the tree, and which may know which.
bt_add_source_test(NAME rooms/EachKnowsOnlyThoseThatItMay
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/rooms_test.py ${CMAKE_SOURCE_DIR})

# The one way to own what GLib makes.
bt_add_source_test(NAME owned/NothingIsReleasedByHand
  Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/owned_test.py ${CMAKE_SOURCE_DIR})

# What script/ci promises: with stages of the test's own, and of those that there are.
foreach(promise
    Stages.test_TheClosingLinesOfTheTestsComeLast Stages.test_ItStopsAtTheFirstThatFails
    Stages.test_AStageThatFailsBeforeThePipeIsSeen Stages.test_ASkippedStageIsRedInTheFullRunOnly
    Stages.test_TheFullRunHasAllStagesAndGoesOn Stages.test_NamedStagesAreRunAlone
    Stages.test_ATableThatIsWrongIsRefused ItsOwnTable.test_EachStageIsAScriptWithTheOptionsThatItIsGiven
    ItsOwnTable.test_WhatAChangeHasToPassIsTheStagesThatAreAlwaysRun)
  string(REPLACE ".test_" "." name ${promise})
  bt_add_source_test(NAME scripts_ci/${name}
    Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/ci_test.py ${CMAKE_SOURCE_DIR} ${promise})
endforeach()

# What the scripts do on machines that are not like this one.
foreach(promise
    Tests.test_ALanguageThatIsNotInstalledIsOfNoMatter Tests.test_SanitizersGetAddressesThatTheyKnow
    Tests.test_SanitizersRunWhereAddressesCannotBeFixed Stages.test_ALanguageThatIsNotInstalledIsOfNoMatter
    Benchmarks.test_WhatTheyNeedIsInstalledFirst Fuzzing.test_WhatItNeedsIsInstalledFirst
    Fuzzing.test_TheSanitizersGetAddressesThatTheyKnow Fuzzing.test_ItRunsWhereAddressesCannotBeFixed
    Fuzzing.test_NoInputOfTheCorpusIsCutOff Checkouts.test_LintReadsThatOfAnotherOwner
    Checkouts.test_LintFailsIfGitDoes Checkouts.test_LintSaysThatNothingHasChangedButNotThatThereIsNothing
    Checkouts.test_OneLineSaysThatThereIsNone Checkouts.test_PackagesAreMadeOfThatOfAnotherOwnerAndWithoutBytecode
    Checkouts.test_FaultsArePlantedInThatOfAnotherOwner Checkouts.test_TheGateIsProvenWithThatOfAnotherOwner
    LivingUnits.test_AreSkippedWithoutNamespaces LivingUnits.test_AreSkippedIfAControlGroupTakesNoProcess
    LivingUnits.test_AreSkippedIfNothingCanBeMounted BuiltInTheTree.test_WhatIsGeneratedThereIsNobodysToOwn
    Arm.test_RootMakesTheSysroot Arm.test_OthersSkipIt Arm.test_OneThatIsThereStays)
  string(REPLACE ".test_" "." name ${promise})
  bt_add_source_test(NAME scripts_elsewhere/${name}
    Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/elsewhere_test.py ${CMAKE_SOURCE_DIR} ${promise})
endforeach()

# What script/lint looks at.
foreach(promise EachSourceIsLookedAtOnceHoweverOftenItIsCompiled ASourceThatIsLeftOutIsNamedWithItsReason
                ASourceThatNothingCompilesIsRefused NoSourceAtAllIsRefused AFindingFailsIt
                WhatIsLeftOutIsThereAndHeadersOfAllFoldersAreLookedAt)
  bt_add_source_test(NAME scripts_lint/${promise}
    Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/lint_test.py ${CMAKE_SOURCE_DIR} Mistakes.test_${promise})
endforeach()

# What script/coverage takes for a reason.
foreach(promise
    Missed.test_ALineThatDidNotRunNeedsAReason Missed.test_AReasonExcusesTheOneLineThatItMeans
    Missed.test_AReasonThatMeansSeveralLinesOrNoneExcusesNothing
    Missed.test_AReasonForALineThatRunsIsRefusedUnlessItSaysThatItMay
    TheList.test_EachReasonMeansOneLineOfTheSources)
  string(REPLACE ".test_" "." name ${promise})
  bt_add_source_test(NAME scripts_coverage/${name}
    Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/coverage_test.py ${CMAKE_SOURCE_DIR} ${promise})
endforeach()

# What debian/ says twice, or has to say.
foreach(promise TheVersionIsThatOfTheLibrary WhatTheBuildNeedsIsInstalledByBootstrap NothingIsTakenBecauseItIsFound
                TheSymbolsThatPackagesMayNeedAreRecordedForEachArchitecture
                EveryPackageIsInstalledInTheFreshRootAndEachDevelopmentPackageIsBuiltAgainst EachOverrideHasItsReason)
  bt_add_source_test(NAME debian/${promise}
    Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/debian_test.py ${CMAKE_SOURCE_DIR} Debian.test_${promise})
endforeach()
