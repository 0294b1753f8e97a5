# Runs PROGRAM with the arguments ARGS (a ;-list) and passes only when it exits
# with a non-zero code (CODE, when given) and writes exactly one line, starting
# with its name (NAME, vorn-solve when not given), to its error output.
if(NOT DEFINED NAME)
  set(NAME vorn-solve)
endif()
execute_process(COMMAND ${PROGRAM} ${ARGS} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(code EQUAL 0)
  message(FATAL_ERROR "exit code 0 for '${ARGS}'")
endif()
if(DEFINED CODE AND NOT code EQUAL CODE)
  message(FATAL_ERROR "exit code ${code}, not ${CODE}, for '${ARGS}'")
endif()
string(REGEX MATCHALL "\n" breaks "${err}")
list(LENGTH breaks lines)
if(NOT lines EQUAL 1 OR NOT err MATCHES "^${NAME}: [^\n]+\n$")
  message(FATAL_ERROR "expected one line of error output for '${ARGS}', got: '${err}'")
endif()
message(STATUS "'${ARGS}' -> exit ${code}: ${err}")
