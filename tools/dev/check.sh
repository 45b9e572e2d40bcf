# ./dev check [STEP...]: the steps of tools/check in their order; every one is run, whatever fails.
steps() { grep -vE '^ *(#|$)' tools/check/steps.txt | awk '{print $1}'; }

if [ "${1:-}" = --list ]; then
  grep -vE '^ *(#|$)' tools/check/steps.txt
  exit 0
fi
need $packages_build $packages_test git
[ $# -gt 0 ] || set -- $(steps)
check_passed=0
check_failed=0
for step in "$@"; do
  [ -f "tools/check/$step.sh" ] || fail "no step \"$step\"; ./dev check --list names them"
  check_step "$step"
done
echo "$check_passed passed, $check_failed failed"
[ "$check_failed" = 0 ]
