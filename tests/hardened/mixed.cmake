# Compiles both parts by COMPILER at LEVEL, links them with LIBRARY, the part FIRST in front, and runs the program: what the
# parts may read they read, and the hardened one stops at a breach.
include("${CMAKE_CURRENT_LIST_DIR}/../consumers/run.cmake")
set(here "${CMAKE_CURRENT_LIST_DIR}")
set(compile ${COMPILER} -std=c++17 ${LEVEL} -I "${here}/../../include")
file(MAKE_DIRECTORY "${WORK}")
run(${compile} -c "${here}/mixed_object.cpp" -DZEPH_TEST_PART=ReadPlain -o "${WORK}/plain.o")
run(${compile} -c "${here}/mixed_object.cpp" -DZEPH_TEST_PART=ReadHardened -DZEPH_HARDENED -o "${WORK}/hardened.o")
set(parts "${WORK}/plain.o" "${WORK}/hardened.o")
if(FIRST STREQUAL "hardened")
  list(REVERSE parts)
endif()
run(${compile} "${here}/mixed_main.cpp" ${parts} "-L${LIBRARY}" -lZEPHDataStructureEngine "-Wl,-rpath,${LIBRARY}"
  -o "${WORK}/program")
run("${WORK}/program")
execute_process(COMMAND "${WORK}/program" breach ERROR_VARIABLE said OUTPUT_QUIET)
if(NOT said MATCHES "^CZEPHDoubleArray::operator\\[\\]: i is 5, outside 0\\.\\.4\n")
  message(FATAL_ERROR "at the breach the program said: ${said}")
endif()
