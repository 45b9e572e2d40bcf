# WebAssembly by Debian's emscripten, run by node. With -DZEPH_WASM_SIMD=ON the compiler may use SIMD128.
find_file(ZEPH_EMSCRIPTEN_TOOLCHAIN Emscripten.cmake REQUIRED NO_CMAKE_FIND_ROOT_PATH
  PATHS "$ENV{EMSDK}/upstream/emscripten/cmake/Modules/Platform" /usr/share/emscripten/cmake/Modules/Platform)
# It would say x86, and bring that processor's compiler options.
set(EMSCRIPTEN_SYSTEM_PROCESSOR wasm32)
include("${ZEPH_EMSCRIPTEN_TOOLCHAIN}")
# Emscripten's loader would fetch the module, which node's own fetch refuses to do from a file.
set(CMAKE_CROSSCOMPILING_EMULATOR node --no-experimental-fetch)
option(ZEPH_WASM_SIMD "Let the compiler use SIMD128" OFF)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZEPH_EMSCRIPTEN_TOOLCHAIN ZEPH_WASM_SIMD)
set(CMAKE_CXX_FLAGS_INIT "-fwasm-exceptions")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fwasm-exceptions -sALLOW_MEMORY_GROWTH=1")
if(ZEPH_WASM_SIMD)
  string(APPEND CMAKE_CXX_FLAGS_INIT " -msimd128")
endif()
