# Runs PROGRAM in a fresh FOLDER and compares what it prints with the file EXPECTED.
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
execute_process(COMMAND "${PROGRAM}" WORKING_DIRECTORY "${FOLDER}" RESULT_VARIABLE result OUTPUT_VARIABLE output
                ERROR_VARIABLE error)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "ended with ${result}\n${output}${error}")
endif()
file(READ "${EXPECTED}" expected)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "printed:\n${output}expected:\n${expected}${error}")
endif()
file(REMOVE_RECURSE "${FOLDER}")
