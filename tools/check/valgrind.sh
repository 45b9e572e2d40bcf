# The suite under memcheck: reads of what was never written, reads and writes outside blocks, leaks.
# A scaled-down run on the static library with AVX2 kernels: valgrind does not know AVX-512.
need valgrind libc6-dbg
need_locale
configure build/static -DCMAKE_BUILD_TYPE=Release -DZEPH_SHARED=OFF
build build/static
form=avx2
ZEPH_TEST_KERNELS=$form build/static/tests/zeph_platform_tests --gtest_list_tests >/dev/null 2>&1 ||
  form=portable
echo "kernels: $form"
export ZEPH_TEST_KERNELS=$form ZEPH_TEST_SAMPLE=1
# The test programs' own allocation operators stay in force; what is under them is watched.
run_programs build/static valgrind --quiet --error-exitcode=99 --leak-check=full \
  --errors-for-leak-kinds=definite --suppressions=tools/check/valgrind.supp --soname-synonyms=somalloc=nouserintercepts
