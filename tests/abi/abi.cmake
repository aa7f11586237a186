# The binary interfaces as applications of the first release need them. script/abi compares them with the records; this is
# what needs no record to be made: the list of what is recorded, and such an application.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
foreach(test NamesWhatTheHeadersDefine HasAllTypesInItsRecords RecordsAreSmallAndNameNoPlace
        ExceptionsAreOnlyDeclaredInTheHeaders)
  bt_add_source_test(NAME abi_witness/${test}
    Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/witness_test.py ${CMAKE_SOURCE_DIR} TheWitness.test_${test})
endforeach()

set(BT_ABI_x86_64-linux-gnu amd64)
set(BT_ABI_arm-linux-gnueabihf armhf)
set(BT_ABI_ARCHITECTURE ${BT_ABI_${CMAKE_LIBRARY_ARCHITECTURE}})
# What is compiled here is not for sanitizers, which want to be loaded first.
if(BT_ABI_ARCHITECTURE AND BT_BUILD_SIMULATION AND NOT BT_SANITIZE)
  set(flags ${GIO_CFLAGS} ${GIO_LDFLAGS})
  if(CMAKE_SYSROOT)
    list(PREPEND flags --sysroot=${CMAKE_SYSROOT})
  endif()
  add_test(NAME abi_first_release/AnApplicationOfThatTimeRunsWithTheLibraryOfToday
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/first_release/run.py ${BT_ABI_ARCHITECTURE}
            ${CMAKE_CXX_COMPILER} $<TARGET_FILE_DIR:bt> $<TARGET_FILE:btservice> ${flags})
  set_tests_properties(abi_first_release/AnApplicationOfThatTimeRunsWithTheLibraryOfToday PROPERTIES TIMEOUT 600)
endif()
