# Compiles the project STAGED/orvane.hhp into OUTPUT with the help compiler CHMCMD, and takes the time of day out of
# it again with CLEAR_TIMES, so that the same sources give the same bytes.
execute_process(
  COMMAND ${CHMCMD} --no-html-scan --verbosity 1 orvane.hhp
  WORKING_DIRECTORY ${STAGED}
  OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE failed)
if(failed OR NOT EXISTS ${STAGED}/orvane.chm)
  message(FATAL_ERROR "the help could not be compiled\n${said}")
endif()

if(KEEP_UNCLEARED)
  file(COPY_FILE ${STAGED}/orvane.chm ${KEEP_UNCLEARED})
endif()
execute_process(COMMAND ${CLEAR_TIMES} ${STAGED}/orvane.chm COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${STAGED}/orvane.chm ${OUTPUT})
