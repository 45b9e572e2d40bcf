# Compiler settings of our own targets, kept off the targets of a parent project and of our users.

# What the builder, or a parent project, gives to every target. Ours come behind it.
get_directory_property(zeph_given_options COMPILE_OPTIONS)
get_directory_property(zeph_given_link_options LINK_OPTIONS)
string(TOUPPER "${CMAKE_BUILD_TYPE}" zeph_build_type)
set(zeph_given_flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${zeph_build_type}} ${zeph_given_options} \
${CMAKE_SHARED_LINKER_FLAGS} ${zeph_given_link_options}")
string(REPLACE ";" " " zeph_given_flags "${zeph_given_flags}")

# In the place of Visual C++ clang takes its own options only behind this, and ignores them without.
set(zeph_own "")
if(MSVC AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  set(zeph_own "/clang:")
endif()

# Every documented result is exact to the last bit: products and sums round separately, so the
# compiler may not fuse them, and fast-math is taken back (src/platform/exactness.h checks).
add_library(zeph_exactness INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(zeph_exactness INTERFACE ${zeph_own}-ffp-contract=off)
  if(NOT MSVC AND zeph_given_flags MATCHES "-Ofast|-ffast|-funsafe-math|-ffinite-math|-fassociative-math|-freciprocal-math|-fno-signed-zeros")
    target_compile_options(zeph_exactness INTERFACE
      -fno-fast-math -fno-unsafe-math-optimizations -fno-finite-math-only -fno-associative-math
      -fno-reciprocal-math -fsigned-zeros -ffp-contract=off)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")  # it remarks on every flag that is taken back
      target_compile_options(zeph_exactness INTERFACE
        $<IF:$<VERSION_LESS:${CMAKE_CXX_COMPILER_VERSION},18>,-Wno-overriding-t-option,-Wno-overriding-option>)
    endif()
    # Linked with them, a library brings start code that switches the host's denormals off.
    target_link_options(zeph_exactness INTERFACE -fno-fast-math -fno-unsafe-math-optimizations)
    if(zeph_given_flags MATCHES "-Ofast")
      target_link_options(zeph_exactness INTERFACE -O3)
    endif()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86|i[3-6]86|AMD64|amd64")
    # g++ 12 fuses where it vectorises alternating sums and differences, contraction off or not, once a
    # -march of the builder's has fused instructions. The wide kernels choose theirs per function.
    target_compile_options(zeph_exactness INTERFACE -mno-fma -mno-fma4 -mno-avx512f)
  endif()
  # The host may round in any direction, where -(x * y) is not (-x) * y; nor is (r / |x|)^2 then (r / x)^2,
  # which g++ 12 takes for the same all the same, unless signs are not traced back. clang++ pays for it with
  # narrow loops, but gave sums of -0.0 for 0.0 without. tests/modes compares all of it.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(zeph_exactness INTERFACE -frounding-math -fno-ssa-backprop)
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "x86|i[3-6]86|AMD64|amd64")  # elsewhere it only warns
    target_compile_options(zeph_exactness INTERFACE ${zeph_own}-frounding-math)
    if(MINGW)  # clang++ then calls the runtime's square root, which does not round as the instruction does
      target_compile_options(zeph_exactness INTERFACE -fno-math-errno)
    endif()
  endif()
  if(EMSCRIPTEN)
    # With SIMD128, clang 14 at -O3 makes another matrix of a rotation's where it vectorises straight-line code.
    target_compile_options(zeph_exactness INTERFACE -fno-slp-vectorize)
  endif()
  # Two builds of one commit are the same bytes, wherever they stand; what counts lines has to find the sources.
  if(NOT zeph_given_flags MATCHES "-fcoverage-mapping|--coverage")
    set(zeph_recorded_as "${zeph_own}-ffile-prefix-map=")
    target_compile_options(zeph_exactness INTERFACE "${zeph_recorded_as}${PROJECT_SOURCE_DIR}=.")
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86|i[3-6]86|AMD64")
    # x87 registers would keep extra bits.
    target_compile_options(zeph_exactness INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()
if(MSVC)
  target_compile_options(zeph_exactness INTERFACE /fp:precise)  # takes a builder's /fp:fast back
  target_compile_definitions(zeph_exactness INTERFACE NOMINMAX)  # the framework brings windows.h along
endif()

# The allocation rule throws and catches, and what is thrown is told by its type, whatever a parent project does
# without.
add_library(zeph_language INTERFACE)
if(MSVC)
  target_compile_options(zeph_language INTERFACE /EHsc /GR /bigobj)  # templates make many sections
elseif(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  if(zeph_given_flags MATCHES "-fno-exceptions")
    target_compile_options(zeph_language INTERFACE -fexceptions)
  endif()
  if(zeph_given_flags MATCHES "-fno-rtti")
    target_compile_options(zeph_language INTERFACE -frtti)
  endif()
endif()

# Calls between our own functions go straight to their body, not through the table that lets a program
# put a function of its own in a library's place; calls out of a library load the address that the
# table holds, without a stop at a stub. docs/porting.md says what programs notice.
add_library(zeph_direct_calls INTERFACE)
if(UNIX AND NOT APPLE AND NOT EMSCRIPTEN AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(zeph_direct_calls INTERFACE -fno-semantic-interposition -fno-plt)
endif()

add_library(zeph_warnings INTERFACE)
if(MSVC)
  target_compile_options(zeph_warnings INTERFACE /W4)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(zeph_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12)
    # It warns of [[maybe_unused]] on a member, which keeps clang++ from warning.
    target_compile_options(zeph_warnings INTERFACE -Wno-attributes)
  endif()
  if(ZEPH_WARNINGS_AS_ERRORS)
    target_compile_options(zeph_warnings INTERFACE -Werror)
  endif()
endif()

add_library(zeph_sanitize INTERFACE)
if(ZEPH_SANITIZE)
  target_compile_options(zeph_sanitize INTERFACE
    -fsanitize=${ZEPH_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zeph_sanitize INTERFACE -fsanitize=${ZEPH_SANITIZE})
endif()

# Applies the house settings to one of our targets.
function(zeph_configure_target target)
  target_compile_features(${target} PRIVATE cxx_std_17)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden POSITION_INDEPENDENT_CODE ON UNITY_BUILD OFF)
  if(NOT WIN32)  # MinGW would keep the documented inline members out of the exports
    set_target_properties(${target} PROPERTIES VISIBILITY_INLINES_HIDDEN ON)
  endif()
  target_link_libraries(${target} PRIVATE
    $<BUILD_INTERFACE:zeph_exactness> $<BUILD_INTERFACE:zeph_language> $<BUILD_INTERFACE:zeph_direct_calls>
    $<BUILD_INTERFACE:zeph_warnings> $<BUILD_INTERFACE:zeph_sanitize>
    $<BUILD_INTERFACE:zeph_optimisation>)
endfunction()
