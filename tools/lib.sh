# Shared by ./dev and the steps of tools/check; sourced from the top of the tree.

jobs=$(nproc)
if command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
  # Precompiled headers are kept only with these.
  export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
fi

say() { printf '%s\n' "$*" >&2; }
fail() {
  say "dev: $*"
  exit 1
}

# The Debian packages behind each kind of work.
packages_build="cmake ninja-build g++ make"
packages_test="libgtest-dev libglm-dev"

# need PACKAGE...: installs what is missing, or says how to and stops.
need() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    need_without_apt
    return
  fi
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local install="apt-get install -y --no-install-recommends ${missing[*]}"
  local as_root
  if [ "$(id -u)" = 0 ]; then
    as_root=""
  elif sudo -n true 2>/dev/null; then
    as_root="sudo"
  else
    say "dev: these packages are missing; install them with"
    say "  sudo $install"
    exit 3
  fi
  say "dev: installing ${missing[*]}"
  local log
  log=$(mktemp)
  if ! (export DEBIAN_FRONTEND=noninteractive
        $as_root apt-get update -qq && $as_root $install) >"$log" 2>&1 </dev/null; then
    tail -n 20 "$log" >&2
    say "dev: installing failed; the command was: $as_root $install"
    exit 3
  fi
  rm -f "$log"
}

# Systems without apt: the compiler and CMake must be there.
need_without_apt() {
  local tool
  for tool in cmake ninja c++; do
    command -v "$tool" >/dev/null ||
      fail "\"$tool\" is missing; install CMake 3.25, Ninja, a C++17 compiler, GoogleTest and GLM"
  done
}

# configure DIR OPTION...: a quiet cmake run.
configure() {
  local dir=$1 log
  shift
  mkdir -p "$dir"
  log=$dir/configure.log
  cmake -S . -B "$dir" -G Ninja "$@" >"$log" 2>&1 || {
    tail -n 40 "$log" >&2
    fail "configuring $dir failed"
  }
}

# build DIR [TARGET...]: shows ninja's progress; the whole output on failure.
build() {
  local dir=$1
  shift
  local targets=()
  [ $# -eq 0 ] || targets=(--target "$@")
  cmake --build "$dir" -j "$jobs" "${targets[@]}" >"$dir/build.log" 2>&1 || {
    grep -E -A12 'error|FAILED|warning:' "$dir/build.log" | head -n 60 >&2
    fail "building $dir failed (all of it: $dir/build.log)"
  }
}

# run_ctest DIR [ARGUMENT...]: runs the tests; the last line counts them.
run_ctest() {
  local dir=$1 status=0 log passed failed total
  shift
  need_locale
  log=$dir/ctest.log
  ctest --test-dir "$dir" -j "$jobs" --output-on-failure --no-tests=error "$@" >"$log" 2>&1 || status=$?
  # "100% tests passed, 0 tests failed out of 2"
  read -r failed total < <(sed -nE 's/.*, ([0-9]+) tests failed out of ([0-9]+).*/\1 \2/p' "$log") || true
  passed=$((${total:-0} - ${failed:-0}))
  if [ "$status" != 0 ]; then
    grep -vE '^ *[0-9]+/[0-9]+ Test.*Passed|^ +Start ' "$log" | tail -n 80
    [ "${failed:-0}" -gt 0 ] || failed=1
  fi
  echo "$passed passed, $failed failed"
  return "$status"
}

# Every C++ source of the tree, a line each.
list_sources() {
  if git rev-parse --git-dir >/dev/null 2>&1; then
    git ls-files --cached --others --exclude-standard '*.h' '*.cpp'
  else
    find include src tests examples bench fuzz tools \( -name '*.h' -o -name '*.cpp' \)
  fi
}

# check_step NAME: runs tools/check/NAME.sh into a log; one line on the outcome, counts added up.
check_step() {
  local step=$1 log=build/check/$1.log start=$SECONDS status=0 counts cpu
  mkdir -p build/check
  printf '%-16s ' "$step"
  # A shell of its own: within "||" the step's own `set -e` would be ignored.
  local TIMEFORMAT='%U %S'
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
  check_passed=$((check_passed + ${counts%% *}))
  check_failed=$((check_failed + $(echo "$counts" | awk '{print $3}')))
}

# need_locale: a locale with a decimal comma, made in build/locales where the system has none, so that
# the tests of such a locale run.
need_locale() {
  command -v locale >/dev/null && command -v localedef >/dev/null || return 0
  if locale -a | grep -qiE '^(de_DE|fr_FR)\.utf-?8$'; then return 0; fi
  need locales
  mkdir -p build/locales
  [ -d build/locales/de_DE.UTF-8 ] || localedef -i de_DE -f UTF-8 build/locales/de_DE.UTF-8
  export LOCPATH=$PWD/build/locales
}

# run_programs DIR [EMULATOR...]: runs each test program of DIR whole, as many at a time as there are
# processors. Names every skipped test with its reason; the last line counts the tests.
run_programs() {
  local dir=$1 passed=0 failed=0 program log programs=()
  shift
  mapfile -t programs < <(find "$dir/tests" -maxdepth 1 -name 'zeph_*_tests*' \
    \( -perm -u+x -o -name '*.exe' \) -not -name '*.log*' -not -name '*.status' | sort)
  for program in "${programs[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n || true; done
    { local status=0
      "$@" "$program" >"$program.log" 2>&1 </dev/null || status=$?
      echo $status >"$program.status"; } &
  done
  wait
  for program in "${programs[@]}"; do
    log=$program.log
    if [ "$(cat "$program.status")" != 0 ]; then
      grep -vE '^\[       OK|^\[ RUN' "$log" | tail -n 40
      echo "$(basename "$program") failed"
      # A program that dies counts as one failure even when it printed none.
      grep -qE '^\[  FAILED  \] [0-9]+ test' "$log" || failed=$((failed + 1))
    fi
    passed=$((passed + $(count_in "$log" PASSED)))
    failed=$((failed + $(count_in "$log" FAILED)))
    list_skipped "$log"
  done
  echo "$passed passed, $failed failed"
  [ $failed = 0 ] && [ $passed -gt 0 ]
}

# count_in LOG PASSED|FAILED: GoogleTest's own count; 0 where it printed none.
count_in() {
  tr -d '\r' <"$1" | sed -nE "s/^\[  $2  \] ([0-9]+) tests?[.,].*/\1/p" | tail -1 | grep . || echo 0
}

# list_skipped LOG: "skipped: Suite.Test: reason", a line each.
list_skipped() {
  tr -d '\r' <"$1" | awk '
    /^\[ RUN      \]/ {reason = ""; heard = 0}
    heard && !reason && !/^\[/ {reason = $0}
    /: Skipped$/ {heard = 1}
    /^\[  SKIPPED \].*ms\)$/ {print "skipped: " $4 ": " (reason ? reason : "no reason given")}'
}

# start_wine DLL-DIR: has Wine's programs find the compiler's libraries and our DLL. One server for the
# whole step: a program that starts while the last one's server goes down loses its connection.
start_wine() {
  local libraries='Z:\usr\x86_64-w64-mingw32\lib;Z:\usr\lib\gcc\x86_64-w64-mingw32\12-posix'
  export WINEPREFIX=$PWD/build/wine WINEDEBUG=-all WINEPATH="$libraries;$(dos "$1")"
  mkdir -p build/wine
  wineserver -p
  trap 'wineserver -k' EXIT
}

# dos PATH: as Wine's programs write it.
dos() { printf 'Z:%s' "$1" | tr / '\\'; }

# under_wine PROGRAM...: runs it, and a second time, whole, if it fails: Wine now and then loses its server
# or cannot start a child. What failed first is kept in build/wine-again.log, for the step to show.
under_wine() {
  local log=$1.wine status=0
  wine "$@" >"$log" 2>&1 || status=$?
  if [ $status != 0 ]; then
    { echo "failed under Wine and run again: $(basename "$1")"
      tr -d '\r' <"$log" | grep -aE '^wine client error|^\[  FAILED  \] [^ ]*\.' | sort -u; } >>build/wine-again.log
    status=0
    wine "$@" >"$log" 2>&1 || status=$?
  fi
  cat "$log"
  return $status
}
