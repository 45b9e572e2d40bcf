# 64-bit ARM Linux by clang++, on the headers and libraries of Debian's cross compiler.
include("${CMAKE_CURRENT_LIST_DIR}/aarch64-linux.cmake")
set(CMAKE_C_COMPILER clang)
set(CMAKE_C_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
