# Which kind of library, and how well optimised where nobody has said. CMake's own answer to a missing build
# type is -O0, at which the sorts take three times as long as the standard library's.
set(ZEPH_LIBRARY_TYPE STATIC)
if(ZEPH_SHARED)
  set(ZEPH_LIBRARY_TYPE SHARED)
endif()

add_library(zeph_optimisation INTERFACE)
get_property(zeph_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT zeph_multi_config AND NOT CMAKE_BUILD_TYPE)
  if(PROJECT_IS_TOP_LEVEL)
    message(STATUS "ZEPHDataStructureEngine: no CMAKE_BUILD_TYPE given, building Release")
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, RelWithDebInfo, MinSizeRel, Debug or None" FORCE)
  elseif(CMAKE_CXX_FLAGS MATCHES "(^| )[-/]O")
    # The parent project has chosen a level among its flags.
  elseif(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    message(STATUS "ZEPHDataStructureEngine: no CMAKE_BUILD_TYPE in the parent project, "
      "building this library with -O2")
    target_compile_options(zeph_optimisation INTERFACE -O2)
  endif()
endif()
unset(zeph_multi_config)
