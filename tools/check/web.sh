# The playground page in headless Chromium, from the disk, without a network; pictures in build/web-pictures.
command -v npm >/dev/null || need npm
npm install --silent --no-audit --no-fund --prefix build/web-test playwright-core@1.64.1
cp web/test/page_test.mjs build/web-test/
page=0
node build/web-test/page_test.mjs build/wasm/playground build/web-pictures || page=1
check $page "the playground page"
