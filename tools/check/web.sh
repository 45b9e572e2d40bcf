# WebAssembly, with and without SIMD128, by node: the digests, the numeric suites; then the playground page
# in headless Chromium, from the disk, without a network. Pictures: build/web-pictures. A module has
# neither processes nor threads, and uses node's files and allocation: the tests of those run on
# other systems.
need $packages_build emscripten googletest chromium
command -v npm >/dev/null || need npm
status=0
workflow wasm wasm-simd || status=1

npm install --silent --no-audit --no-fund --prefix build/web-test playwright-core@1.64.1
cp web/test/page_test.mjs build/web-test/
page=0
node build/web-test/page_test.mjs build/wasm/playground build/web-pictures || page=1
check $page "the playground page"
verdicts && exit $status
