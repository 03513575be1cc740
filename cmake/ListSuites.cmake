# Writes SUITES, a file for CTest with a test for each suite of PROGRAM (of GoogleTest), in this ENVIRONMENT; those
# that are SLOW begin before others.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE list COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" list "${list}")
set(tests "")
foreach(line IN LISTS list)
  # Suites begin their line and end with a period; their tests are indented, remarks follow a "#".
  if(line MATCHES "^([A-Za-z0-9_/]+)\\.( *#.*)?$")
    set(suite ${CMAKE_MATCH_1})
    string(APPEND tests "add_test([==[${suite}]==] [==[${PROGRAM}]==] --gtest_brief=1 [==[--gtest_filter=${suite}.*]==])\n")
    if(suite IN_LIST SLOW)
      string(APPEND tests "set_tests_properties([==[${suite}]==] PROPERTIES COST 1000)\n")
    endif()
    if(ENVIRONMENT)
      string(APPEND tests "set_tests_properties([==[${suite}]==] PROPERTIES ENVIRONMENT [==[${ENVIRONMENT}]==])\n")
    endif()
  endif()
endforeach()
file(WRITE ${SUITES} "${tests}")
