configure build/static -DCMAKE_BUILD_TYPE=Release -DZEPH_SHARED=OFF
build build/static
for form in portable avx2 avx512; do
  if ZEPH_TEST_KERNELS=$form build/static/tests/zeph_platform_tests --gtest_list_tests >/dev/null 2>&1; then
    echo "form $form"
    ZEPH_TEST_KERNELS=$form run_programs build/static | grep -v skipped:
  else
    echo "form $form: not on this machine, not measured"
  fi
done
