# ./dev check [STEP...]: the steps of tools/check/steps.txt in their order, or those that are named; all of
# them are run even if some fail. --list names them. A step's log is build/check/STEP.log.
check_list() { grep -v '^#' tools/check/steps.txt | awk -F ' *[|] *' '{printf "%-12s  %s\n", $1, $2}'; }

case "${1:-}" in
  --list) [ $# = 1 ] || fail "--list stands alone"; check_list; exit 0 ;;
  "") set -- $(check_list | awk '{print $1}') ;;
esac
for step in "$@"; do
  grep -q "^$step " tools/check/steps.txt || fail "no step \"$step\"; ./dev check --list names them"
done
need $packages_build $packages_test git
mkdir -p build/check

# run_step NAME: runs the step into its log; one line on the outcome, counts added up.
run_step() {
  local step=$1 log=build/check/$1.log start=$SECONDS status=0 counts cpu good bad TIMEFORMAT='%U %S'
  printf '%-16s ' "$step"
  # A separate shell: within "||" the step's own `set -e` would be ignored.
  { time bash -euo pipefail -c '. tools/lib.sh; step "$0"' "$step" >"$log" 2>&1 </dev/null; } 2>"$log.time" || status=$?
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
  read -r good _ bad _ <<<"$counts"
  passed=$((passed + good)) failed=$((failed + bad))
  if [ -n "${ZEPH_RECORD:-}" ]; then  # into docs/data, and thereby into docs/reliability.md
    python3 -B tools/docs/record.py check "$step" "outcome=$([ "$status" = 0 ] && echo ok || echo failed)" \
      "seconds=$((SECONDS - start))" "passed=$good" "failed=$bad"
    python3 -B tools/docs/figures.py
  fi
}

for step in "$@"; do run_step "$step"; done
verdicts
