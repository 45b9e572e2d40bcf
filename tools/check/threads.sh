need clang libclang-rt-14-dev
configure build/threads -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DZEPH_SANITIZE=thread -DZEPH_BUILD_EXAMPLES=OFF
build build/threads zeph_fuzz_tests
export TSAN_OPTIONS=suppressions=$PWD/tools/check/threads.supp:halt_on_error=1
build/threads/tests/zeph_fuzz_tests --gtest_filter='Threads.*'
echo "1 passed, 0 failed"
