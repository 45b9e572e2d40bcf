# ./dev check [--all | STEP...]: the steps of tools/check in their order; every one is run, whatever
# fails. Without --all, those above the line "# --all" in steps.txt: what fits into an hour.
check_short() { sed '/^# --all/,$d' tools/check/steps.txt | grep -vE '^ *(#|$)'; }
check_all() { grep -vE '^ *(#|$)' tools/check/steps.txt; }

case "${1:-}" in
  --list)
    if [ "${2:-}" = --all ]; then check_all; else check_short; fi
    exit 0 ;;
  --all) set -- $(check_all | awk '{print $1}') ;;
  "") set -- $(check_short | awk '{print $1}') ;;
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
