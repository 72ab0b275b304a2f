# Runs PHONE on SCENARIO with SLICE of LIBRARY: the run must end with status 1 and say TEXT.
execute_process(COMMAND ${PHONE} run "${SCENARIO}" --library "${LIBRARY}" --slice "${SLICE}"
  RESULT_VARIABLE status OUTPUT_VARIABLE said ERROR_VARIABLE said)
message("${said}")
if(NOT status EQUAL 1)
  message(FATAL_ERROR "the run ended with ${status} in place of 1")
endif()
if(NOT said MATCHES "${TEXT}")
  message(FATAL_ERROR "nothing was said about: ${TEXT}")
endif()
