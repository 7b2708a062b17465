# vorn_add_test_suites(ROOM PROGRAM EACH_CASE PROPERTIES...): makes the tests of one program known to ctest, which calls
# this anew whenever it runs. A test is a suite, named ROOM.Suite, and its cases share one process: to start one takes
# longer than most of them do. With EACH_CASE, or where VORN_EACH_CASE is in the environment, each case is a test,
# ROOM.Suite.Case.
function(vorn_add_test_suites room program each_case)
  if(NOT EXISTS ${program})
    add_test(${room}_NOT_BUILT ${room}_NOT_BUILT)
    return()
  endif()
  execute_process(COMMAND ${program} --gtest_list_tests OUTPUT_VARIABLE listed RESULT_VARIABLE failure)
  if(failure)
    message(FATAL_ERROR "${program} does not list its tests: ${failure}")
  endif()
  # What stands behind a name tells its parameters, and may hold anything.
  string(REGEX REPLACE " +#[^\n]*" "" listed "${listed}")
  string(REGEX MATCHALL "[^\n]+" lines "${listed}")
  foreach(line ${lines})
    set(name)
    if(line MATCHES "^([^ ]+)\\.$")
      set(suite ${CMAKE_MATCH_1})
      if(NOT each_case)
        set(name ${suite})
        set(cases ${suite}.*)
      endif()
    elseif(each_case AND line MATCHES "^  ([^ ]+)$")
      set(name ${suite}.${CMAKE_MATCH_1})
      set(cases ${name})
    endif()
    if(name)
      add_test(${room}.${name} ${program} --gtest_filter=${cases})
      # A suite is left out when all of it was.
      set_tests_properties(${room}.${name} PROPERTIES ${ARGN}
        SKIP_REGULAR_EXPRESSION "\\[  PASSED  \\] 0 tests\\.\n\\[  SKIPPED \\]")
    endif()
  endforeach()
endfunction()
