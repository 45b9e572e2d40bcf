# Runs PROGRAM (through EMULATOR) on FILE: its status must be STATUS, its output or its one line of complaint
# must hold TEXT.
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" --out "${PICTURES}" ${FILE}
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE complaint)
string(REGEX MATCHALL "\n" lines "${complaint}")
list(LENGTH lines count)
string(FIND "${output}${complaint}" "${TEXT}" found)
if(NOT status STREQUAL STATUS OR count GREATER 1 OR found EQUAL -1)
  message(FATAL_ERROR "status ${status}, wanted ${STATUS} and \"${TEXT}\":\n${complaint}")
endif()
