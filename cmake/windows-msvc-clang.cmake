# Windows by clang-cl, clang++ that takes Visual C++'s options (Debian clang, lld), over declarations of the standard
# library: nothing can be linked. A builder's /fp:fast is taken back; options that it does not know are errors.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_COMPILER_WORKS ON)
find_program(ZEPH_CLANG clang++)
file(REAL_PATH "${ZEPH_CLANG}" compiler)
get_filename_component(compiler "${compiler}" DIRECTORY)
set(CMAKE_CXX_COMPILER "${compiler}/clang-cl")  # beside it
set(CMAKE_MT true)
set(CMAKE_RC_COMPILER true)
execute_process(COMMAND "${CMAKE_CXX_COMPILER}" /clang:-print-resource-dir OUTPUT_VARIABLE resources OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
set(CMAKE_CXX_FLAGS_INIT
  "/X /imsvc${root}/tests/msvc/standard /imsvc${resources}/include /clang:-ffreestanding /fp:fast -Werror -Wno-overriding-t-option")
