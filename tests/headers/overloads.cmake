# COMPILER reports on exactly those lines of overloads.cpp that end in "// added": marked as deprecated, an addition
# is reported on every line that reaches it; so is an error.
set(source "${CMAKE_CURRENT_LIST_DIR}/overloads.cpp")
execute_process(COMMAND "${COMPILER}" -std=c++${STANDARD} -fsyntax-only -Wno-unused -I "${CMAKE_CURRENT_LIST_DIR}/../../include"
  "-DZEPH_ADDED=__attribute__((deprecated(\"added\")))" "${source}" ERROR_VARIABLE said OUTPUT_QUIET)
file(READ "${source}" text)
string(REGEX REPLACE "[][;]" " " text "${text}")  # which would join lines, or part them
string(REPLACE "\n" ";" lines "${text}")
set(number 0)
foreach(line IN LISTS lines)
  math(EXPR number "${number} + 1")
  string(REGEX MATCH "// added$" wanted "${line}")
  string(REGEX MATCH "overloads.cpp:${number}:[0-9]+: [^\n]*(deprecated|error:)[^\n]*" found "${said}")
  if(wanted AND NOT found)
    message(SEND_ERROR "line ${number} reaches no addition: ${line}")
  elseif(found AND NOT wanted)
    message(SEND_ERROR "line ${number} is not marked as reaching an addition: ${line}\n${found}")
  endif()
endforeach()
