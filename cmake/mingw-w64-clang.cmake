# 64-bit Windows by clang++ and lld over MinGW-w64's headers and runtime, run by Wine where that is installed.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake")
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
# clang++ does not look where Debian keeps g++'s library for this target.
file(GLOB runtime /usr/lib/gcc/x86_64-w64-mingw32/*-posix)
if(runtime)
  list(GET runtime -1 runtime)
  set(CMAKE_CXX_FLAGS_INIT
    "-nostdinc++ -isystem ${runtime}/include/c++ -isystem ${runtime}/include/c++/x86_64-w64-mingw32")
endif()
foreach(kind IN ITEMS EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld")
  if(runtime)
    string(APPEND CMAKE_${kind}_LINKER_FLAGS_INIT " -L${runtime}")
  endif()
endforeach()
