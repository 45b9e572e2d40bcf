# The suite under memcheck: reads of what was never written, reads and writes outside blocks, leaks.
# A scaled-down run on the static library with AVX2 kernels: valgrind does not know AVX-512.
need valgrind
need_locale
configure build/valgrind -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O1 -g1 -DZEPH_TEST_SAMPLE" \
  -DBUILD_SHARED_LIBS=OFF -DZEPH_BUILD_EXAMPLES=OFF
build build/valgrind
form=avx2
ZEPH_TEST_KERNELS=$form build/valgrind/tests/zeph_platform_tests --gtest_list_tests >/dev/null 2>&1 ||
  form=portable
echo "kernels: $form"
export ZEPH_TEST_KERNELS=$form
# The test programs' own allocation operators stay in force; what is under them is watched.
run_programs build/valgrind valgrind --quiet --error-exitcode=99 --leak-check=full \
  --errors-for-leak-kinds=definite --soname-synonyms=somalloc=nouserintercepts
