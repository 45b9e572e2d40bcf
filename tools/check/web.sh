# WebAssembly, with and without SIMD128, by node: the digests, the numeric suites; then the playground page
# in headless Chromium, from the disk, without a network. Pictures: build/web-pictures.
need $packages_build emscripten googletest chromium
command -v npm >/dev/null || need npm
passed=0 failed=0
suites="double_array raw_buffers linalg graphics containers algorithms"
for preset in wasm wasm-simd; do
  cmake --preset $preset -DZEPH_BUILD_TESTS=ON >/dev/null
  build build/$preset zeph_selftest zeph_double_array_tests
  if node --no-experimental-fetch build/$preset/tools/selftest/zeph-selftest.js; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
  fi
done
# shellcheck disable=SC2046
build build/wasm zeph_playground $(printf 'zeph_%s_tests ' $suites)
echo "$passed passed, $failed failed"

# A module has neither processes nor threads, and its files and allocations are node's: the tests of those
# run on systems.
elsewhere='*Fatal*:*AllocationFailure*:*Shallow*:*NegationLifetime*:*Display*:*Listing*:*Print*:*Stream*:*Thread*'
status=0
for suite in $suites; do
  log=build/wasm/tests/$suite.log
  node --no-experimental-fetch build/wasm/tests/zeph_${suite}_tests.js --gtest_filter="-$elsewhere" \
    >$log 2>&1 </dev/null || { status=1; grep -vE '^\[       OK|^\[ RUN' "$log" | tail -n 40; }
  echo "$(count_in "$log" PASSED) passed, $(count_in "$log" FAILED) failed"
done

npm install --silent --no-audit --no-fund --prefix build/web-test playwright-core@1.64.1
cp web/test/page_test.mjs build/web-test/
node build/web-test/page_test.mjs build/wasm/playground build/web-pictures || status=1
[ $failed = 0 ] && [ $status = 0 ]
