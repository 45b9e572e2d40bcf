# ./dev check [STEP...]: the steps of tools/check in their order, or those that are named; all of
# them are run even if some fail. --list names them. A step's log is build/check/STEP.log.
check_list() { grep -vE '^ *(#|$)' tools/check/steps.txt; }

case "${1:-}" in
  --list) [ $# = 1 ] || fail "--list stands alone"; check_list; exit 0 ;;
  "") set -- $(check_list | awk '{print $1}') ;;
esac
for step in "$@"; do
  [ -f "tools/check/$step.sh" ] || fail "no step \"$step\"; ./dev check --list names them"
done
need $packages_build $packages_test git
mkdir -p build/check

# run_step NAME: runs tools/check/NAME.sh into its log; one line on the outcome, counts added up.
run_step() {
  local step=$1 log=build/check/$1.log start=$SECONDS status=0 counts cpu TIMEFORMAT='%U %S'
  printf '%-16s ' "$step"
  # A separate shell: within "||" the step's own `set -e` would be ignored.
  { time bash -euo pipefail -c '. tools/lib.sh; . "tools/check/$0.sh"' "$step" >"$log" 2>&1 </dev/null; } \
    2>"$log.time" || status=$?
  cpu=$(awk '{t += $1 + $2} END {printf "%d", t}' "$log.time")
  counts=$(awk '/^[0-9]+ passed, [0-9]+ failed$/ {p += $1; f += $3; n++}
    END {if (n) print p " passed, " f " failed"}' "$log")
  if [ "$status" = 0 ]; then
    printf 'ok    %4d s, %4d s of work  %s\n' $((SECONDS - start)) "$cpu" "$counts"
    [ -n "$counts" ] || counts="1 passed, 0 failed"
  else
    printf 'FAILED %3d s  %s\n' $((SECONDS - start)) "$counts"
    tail -n 60 "$log" | sed 's/^/    /'
    case "$counts" in "" | *" 0 failed") counts="0 passed, 1 failed" ;; esac
  fi
  record "$step" "$status" $((SECONDS - start)) "$counts"
  passed=$((passed + ${counts%% *}))
  failed=$((failed + $(echo "$counts" | awk '{print $3}')))
}

# record STEP STATUS SECONDS COUNTS: with ZEPH_RECORD=1 into docs/data, and thereby into docs/reliability.md.
record() {
  [ -n "${ZEPH_RECORD:-}" ] || return 0
  python3 -B tools/docs/record.py check "$1" "outcome=$([ "$2" = 0 ] && echo ok || echo failed)" "seconds=$3" \
    "passed=${4%% *}" "failed=$(echo "$4" | awk '{print $3}')"
  python3 -B tools/docs/figures.py
}

for step in "$@"; do run_step "$step"; done
verdicts
