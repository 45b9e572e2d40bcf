# ./dev test: builds by the preset `release` and runs every test; then all of them again on small stacks.
need $packages_build $packages_test
workflow release small-stack
