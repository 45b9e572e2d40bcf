# ./dev mutants [OPTION...]: makes small mistakes in src/ and include/, runs the tests against each and counts those that
# no test notices; tools/mutants/README.md tells how. --by-hand first: those of tools/mutants/by_hand instead.
if [ "${1:-}" = --by-hand ]; then
  shift
  need $packages_build $packages_test
  python3 -B tools/mutants/by_hand.py --jobs "$jobs" "$@"
else
  need $packages_build $packages_test clang python3-clang-14 libclang-14-dev
  mutants_python=python3
  "$mutants_python" -c 'import clang.cindex' 2>/dev/null || mutants_python=/usr/bin/python3
  mkdir -p build/mutants
  "$mutants_python" -B tools/mutants/mutants.py --jobs "$jobs" "$@"
fi
