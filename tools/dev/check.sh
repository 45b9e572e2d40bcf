# ./dev check [STEP...]: the steps of tools/check in their order, or those that are named; every one is run,
# whatever fails. All of them take three quarters of an hour on two cores. --list names them.
check_all() { grep -vE '^ *(#|$)' tools/check/steps.txt; }

case "${1:-}" in
  --list) check_all; exit 0 ;;
  "") set -- $(check_all | awk '{print $1}') ;;
esac
need $packages_build $packages_test git
export check_run=$$.$(date +%s)  # tells a step what another has done in the same run
check_passed=0
check_failed=0
for step in "$@"; do
  [ -f "tools/check/$step.sh" ] || fail "no step \"$step\"; ./dev check --list names them"
  check_step "$step"
done
echo "$check_passed passed, $check_failed failed"
[ "$check_failed" = 0 ]
