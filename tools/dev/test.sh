# ./dev test: builds by the preset `release` and runs every test, of the long ones a sample; ./dev check test runs all
# of each, and then each program on a small stack.
need $packages_build $packages_test
workflow sample
