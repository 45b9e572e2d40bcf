# ./dev mutants [OPTION...]: makes small mistakes in src/ and include/, runs the tests against each and counts those that
# no test notices; tools/mutants/README.md tells how. --by-hand first: those of tools/mutants/by_hand instead.
if [ "${1:-}" = --by-hand ]; then
  need $packages_build $packages_test
  python3 -B tools/mutants/by_hand.py --jobs "$jobs" "${@:2}"
else
  need $packages_build $packages_test clang python3-clang-14 libclang-14-dev
  /usr/bin/python3 -B tools/mutants/mutants.py --jobs "$jobs" "$@"  # for which Debian installs the bindings
fi
