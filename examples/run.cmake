# Runs PROGRAM: it must succeed, and print what EXPECTED holds.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE output RESULT_VARIABLE result)
file(READ ${EXPECTED} expected)
if(NOT result EQUAL 0 OR NOT output STREQUAL expected)
  message(FATAL_ERROR "exit status ${result}, output:\n${output}expected:\n${expected}")
endif()
