# Configures the project SOURCE below WORK twice, builds it, runs its program (through EMULATOR) and installs
# it: it prints the sorted values, and of our library nothing is installed with it.
include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")
string(REPLACE " | " ";" OPTIONS "${OPTIONS}")
file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" -S "${SOURCE}" -B "${WORK}/build" -G "${GENERATOR}" ${OPTIONS})
run("${CMAKE_COMMAND}" "${WORK}/build")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
set(ENV{WINEPATH} "Z:${DLL_FOLDER}")  # only what the installation brings
file(GLOB program "${WORK}/build/app" "${WORK}/build/app.exe")
run(${EMULATOR} "${program}")
string(STRIP "${text}" text)
if(NOT text STREQUAL "1 2 3")
  message(FATAL_ERROR "the program printed \"${text}\", not \"1 2 3\"")
endif()
run("${CMAKE_COMMAND}" --install "${WORK}/build" --prefix "${WORK}/prefix")
if(EXISTS "${WORK}/prefix/include")
  message(FATAL_ERROR "the project's installation brought our headers")
endif()
