# orvane_discover_tests(TARGET [ENVIRONMENT NAME=VALUE ...] [SLOW SUITE ...])
# CTest runs each suite of this test program as one process: starting a process takes longer than most tests. What the
# suites are is asked of the program itself whenever it has been linked. Slow ones begin first, so that nothing waits for
# them in the end.
function(orvane_discover_tests target)
  cmake_parse_arguments(DISCOVER "" "" "ENVIRONMENT;SLOW" ${ARGN})
  set(suites ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
  add_custom_command(TARGET ${target} POST_BUILD BYPRODUCTS ${suites} VERBATIM
    COMMAND ${CMAKE_COMMAND} -E env ${DISCOVER_ENVIRONMENT}
      ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:${target}> -D "ENVIRONMENT=${DISCOVER_ENVIRONMENT}" -D "SLOW=${DISCOVER_SLOW}"
        -D SUITES=${suites} -P ${CMAKE_SOURCE_DIR}/cmake/ListSuites.cmake)
  # Until it has been built CTest says so by a test that fails.
  if(NOT EXISTS ${suites})
    file(WRITE ${suites} "add_test(${target}_is_not_built ${CMAKE_COMMAND} -E false)\n")
  endif()
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${suites})
endfunction()
