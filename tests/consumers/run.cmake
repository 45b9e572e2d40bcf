# run(COMMAND...): runs a command that must succeed; `text` is then what it wrote.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(NOT status EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${text}")
  endif()
  set(text "${text}" PARENT_SCOPE)
endfunction()
