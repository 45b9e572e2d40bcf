# ./dev instructions [--update]: counts the instructions of tools/instructions/workload.cpp, a run per
# family and kernel form, and compares them with tools/instructions.txt, or writes that table.
#
# The table belongs to one compiler: with another the counts are shown and not compared.
need $packages_build $packages_test valgrind libc6-dbg
table=tools/instructions.txt
tolerance=3  # per cent
case "${1:-}" in "" | --update) ;; *) fail "./dev instructions takes --update or nothing" ;; esac
build static zeph_instructions
program=build/static/tests/zeph_instructions
compiler="g++ $(g++ -dumpfullversion), $(uname -m), valgrind $(valgrind --version | sed 's/valgrind-//'), glibc $(getconf GNU_LIBC_VERSION | sed 's/glibc //')"

# count FORM FAMILY: prints the number; nothing where the form cannot run here.
count() {
  valgrind --tool=callgrind --callgrind-out-file=/dev/null --toggle-collect=ZephWorkload \
    "$program" "$1" "$2" 2>&1 | sed -nE 's/.*Collected : ([0-9]+).*/\1/p'
}

counted=build/results/instructions.txt
{
  echo "# Instructions of tools/instructions/workload.cpp, by ./dev instructions --update."
  echo "# $compiler"
  for form in portable avx2; do
    for family in $("$program" --list "$form"); do
      printf '%-9s %-18s %12s\n' "$form" "$family" "$(count "$form" "$family")"
    done
  done
} >"$counted"

if [ "${1:-}" = --update ]; then
  cp "$counted" "$table"
  say "dev: $table is written"
elif [ "$(sed -n 2p "$counted")" != "$(sed -n 2p "$table")" ]; then
  cat "$counted"
  echo "another compiler than the table's ($(sed -n '2s/# //p' "$table")): not compared"
else
  awk -v tolerance=$tolerance '
    /^#/ { next }
    NR == FNR { want[$1 " " $2] = $3; next }
    {
      key = $1 " " $2
      seen[key] = 1
      if ($3 == 0) { print key ": not on this machine, not counted"; next }
      change = want[key] ? 100 * ($3 - want[key]) / want[key] : 100
      if (change > tolerance || change < -tolerance) {
        printf "%s: %d instructions, %d in the table (%+.1f %%)\n", key, $3, want[key], change
        ++failed
      } else { ++passed }
    }
    END {
      for (key in want) if (!(key in seen)) { print key ": in the table, not counted"; ++failed }
      if (failed) print "If the change is meant: ./dev instructions --update, and say why in the commit."
      printf "%d passed, %d failed\n", passed, failed
      exit failed > 0
    }' "$table" "$counted"
fi
