# ./dev fuzz SECONDS [TARGET]: searches with every body of fuzz/ (or one) for SECONDS each, as many at
# a time as there are processors. Inputs that reach new code stay in build/fuzz/found/<target>; the
# saved ones of fuzz/corpus are the start. ZEPH_FUZZ_SEED=N makes a search repeatable; without it no
# two searches are alike. An input that fails is kept and named.
seconds=${1:-}
[[ $seconds =~ ^[0-9]+$ ]] && [ "$seconds" -gt 0 ] || fail "usage: ./dev fuzz SECONDS [TARGET]"
need $packages_build $packages_test clang libclang-rt-14-dev
dir=build/fuzz
targets=()
for body in fuzz/*.cpp; do targets+=("$(basename "$body" .cpp)"); done
if [ -n "${2:-}" ]; then
  [ -f "fuzz/$2.cpp" ] || fail "no fuzz target \"$2\"; there are: ${targets[*]}"
  targets=("$2")
fi
say "dev: building the fuzz targets"
build fuzz $(printf 'zeph_fuzz_%s ' "${targets[@]}")

# fuzz_one TARGET: one search into its log; the outcome is read from there.
fuzz_one() {
  local target=$1 found=$dir/found/$1 seeds=fuzz/corpus/$1
  mkdir -p "$found" "$seeds" "$dir/broken"
  $dir/fuzz/zeph_fuzz_"$target" -max_total_time="$seconds" -seed="${ZEPH_FUZZ_SEED:-0}" -timeout=60 -rss_limit_mb=2000 \
    -max_len=1024 -print_final_stats=1 -artifact_prefix="$dir/broken/$target-" \
    "$found" "$seeds" >"$dir/$target.log" 2>&1 </dev/null
}

# fuzz_report TARGET STATUS: its line of the table.
fuzz_report() {
  local target=$1 log=$dir/$1.log runs start end added
  runs=$(sed -nE 's/^stat::number_of_executed_units: *//p' "$log")
  [ -n "$runs" ] || runs=$(sed -nE 's/^#([0-9]+).*/\1/p' "$log" | tail -1)
  start=$(sed -nE 's/.*INITED cov: ([0-9]+).*/\1/p' "$log" | head -1)
  end=$(sed -nE 's/^#.* cov: ([0-9]+).*/\1/p' "$log" | tail -1)
  added=$(sed -nE 's/^stat::new_units_added: *//p' "$log")
  [ -z "${ZEPH_RECORD:-}" ] || python3 -B tools/docs/record.py fuzz "$target" "executions=${runs:-0}" \
    "seconds=$seconds" "coverage=${end:-?}" "outcome=$([ "$2" = 0 ] && echo "nothing found" || echo "a promise broken")"
  printf '%-14s %11s executions  coverage %5s -> %5s  %5s new inputs  %s\n' "$target" "${runs:-0}" \
    "${start:-?}" "${end:-?}" "${added:-?}" "$([ "$2" = 0 ] && echo "no findings" || echo "BROKEN")"
  if [ "$2" != 0 ]; then
    grep -E -A12 'broken promise|ERROR: |runtime error|SUMMARY|Test unit written' "$log" |
      head -n 40 | sed 's/^/    /'
  fi
}

broken=0
clean=0
export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1 UBSAN_OPTIONS=print_stacktrace=1
say "dev: ${#targets[@]} targets, $seconds s each, $jobs at a time"
for ((i = 0; i < ${#targets[@]}; i += jobs)); do
  batch=("${targets[@]:i:jobs}")
  pids=()
  for target in "${batch[@]}"; do
    fuzz_one "$target" &
    pids+=($!)
  done
  say "dev: searching: ${batch[*]} ($((i + ${#batch[@]})) of ${#targets[@]})"
  for k in "${!batch[@]}"; do
    status=0
    wait "${pids[k]}" || status=$?
    fuzz_report "${batch[k]}" $status
    if [ $status = 0 ]; then clean=$((clean + 1)); else broken=$((broken + 1)); fi
  done
done
echo "$clean passed, $broken failed"
[ $broken = 0 ] || fail "the inputs stand in $dir/broken; run a target on one to see it again"
