# ./dev test: builds by the preset `release` and runs every test.
need $packages_build $packages_test
workflow release
