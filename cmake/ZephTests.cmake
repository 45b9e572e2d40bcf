# How the test programs are run by ctest.

# An emulator takes longer to start a program than most tests take: there each program runs whole.
# GoogleTest's own counts stand in its output. A form of the kernels that the machine lacks is a skip.
function(zeph_run_test_program program label)
  set(properties LABELS ${label} SKIP_RETURN_CODE 77)
  if(ZEPH_TEST_LOCALES)
    list(APPEND properties ENVIRONMENT "LOCPATH=${ZEPH_TEST_LOCALES}")
  endif()
  if(EMSCRIPTEN)
    # A module has neither processes nor threads nor streams of its own, and its memory is node's: the tests of
    # those run on systems. node may end with 0 before the program does, so its last words decide.
    set(elsewhere *Fatal* *AllocationFailure* *AllocMemory* *Shallow* *NegationLifetime* *Display* *Listing* *Print*
      *Stream* *StandardOutput* *Report* *Thread*)
    list(JOIN elsewhere ":" elsewhere)
    add_test(NAME ${program} COMMAND ${program} "--gtest_filter=-${elsewhere}")
    set_tests_properties(${program} PROPERTIES TIMEOUT 600 LABELS ${label}
      PASS_REGULAR_EXPRESSION "\\[  PASSED  \\]" FAIL_REGULAR_EXPRESSION "\\[  FAILED  \\]")
  elseif(CMAKE_CROSSCOMPILING_EMULATOR)
    add_test(NAME ${program} COMMAND ${program})
    set_tests_properties(${program} PROPERTIES TIMEOUT 900 FIXTURES_REQUIRED emulator ${properties})
  else()
    gtest_discover_tests(${program} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 600 ${properties})
    # Threads of hosts have stacks as small as this.
    if(UNIX AND NOT ZEPH_SANITIZE)
      add_test(NAME small_stack.${program} COMMAND sh -c "ulimit -s 128 && exec '$<TARGET_FILE:${program}>' --gtest_brief")
      set_tests_properties(small_stack.${program} PROPERTIES TIMEOUT 600 ${properties} LABELS small-stack)
    endif()
  endif()
  # Under valgrind, on the static library: the programs' own allocation operators stay in force; what is
  # under them is watched. It does not know AVX-512.
  if(NOT ZEPH_SHARED AND ZEPH_VALGRIND)
    add_test(NAME memcheck.${program} COMMAND ${ZEPH_VALGRIND} --quiet --error-exitcode=99 --leak-check=full
      --errors-for-leak-kinds=definite --suppressions=${PROJECT_SOURCE_DIR}/tools/check/valgrind.supp
      --soname-synonyms=somalloc=nouserintercepts $<TARGET_FILE:${program}>)
    set_tests_properties(memcheck.${program} PROPERTIES TIMEOUT 1200 ${properties} LABELS memcheck
      ENVIRONMENT_MODIFICATION "ZEPH_TEST_KERNELS=set:${zeph_watched_kernels}")
  endif()
endfunction()
find_program(ZEPH_VALGRIND valgrind)
set(zeph_watched_kernels portable)
if(EXISTS /proc/cpuinfo)
  file(STRINGS /proc/cpuinfo flags REGEX " avx2 " LIMIT_COUNT 1)
  if(flags)
    set(zeph_watched_kernels avx2)
  endif()
endif()

# A locale with a decimal comma, and one whose point has two bytes, made where the system has none, so that
# the tests of such locales run.
find_program(ZEPH_LOCALEDEF localedef)
if(ZEPH_LOCALEDEF AND NOT CMAKE_CROSSCOMPILING)
  set(ZEPH_TEST_LOCALES "${PROJECT_BINARY_DIR}/locales")
  file(MAKE_DIRECTORY "${ZEPH_TEST_LOCALES}")
  foreach(locale IN ITEMS de_DE ps_AF)
    if(NOT EXISTS "${ZEPH_TEST_LOCALES}/${locale}.UTF-8")
      execute_process(COMMAND "${ZEPH_LOCALEDEF}" -i ${locale} -f UTF-8 "${ZEPH_TEST_LOCALES}/${locale}.UTF-8"
        OUTPUT_QUIET ERROR_QUIET)
    endif()
  endforeach()
endif()

# One server for all of Wine's programs: one that starts while the last one's server goes down loses its
# connection.
if(WIN32 AND CMAKE_CROSSCOMPILING_EMULATOR)
  file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/wine")
  # Its services live on: with a test's output in their hands ctest would wait for their end.
  get_filename_component(wine_folder "${CMAKE_CROSSCOMPILING_EMULATOR}" DIRECTORY)
  add_test(NAME wine.start COMMAND sh -c
    "('${wine_folder}/wineserver' -p; '${CMAKE_CROSSCOMPILING_EMULATOR}' wineboot) >/dev/null 2>&1 </dev/null")
  add_test(NAME wine.stop COMMAND "${wine_folder}/wineserver" -k)
  set_tests_properties(wine.start PROPERTIES FIXTURES_SETUP emulator)
  set_tests_properties(wine.stop PROPERTIES FIXTURES_CLEANUP emulator)
endif()
