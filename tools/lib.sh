# Shared by ./dev and the steps of tools/check; sourced from the top of the tree.

jobs=$(nproc)
export CTEST_PARALLEL_LEVEL=$jobs
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
packages_test="libgtest-dev libglm-dev locales"

# need PACKAGE...: installs what is missing, or says how to and stops.
need() {
  local missing=() package tool as_root="" install
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    for tool in cmake ninja c++; do
      command -v "$tool" >/dev/null ||
        fail "\"$tool\" is missing; install CMake 3.25, Ninja, a C++17 compiler, GoogleTest and GLM"
    done
    return 0
  fi
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  install="apt-get install -y --no-install-recommends ${missing[*]}"
  if [ "$(id -u)" != 0 ]; then
    as_root=sudo
    sudo -n true 2>/dev/null || fail "these packages are missing; install them with: sudo $install"
  fi
  say "dev: installing ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  show install sh -c "$as_root apt-get update -qq && $as_root $install" </dev/null ||
    fail "installing failed; the command was: $as_root $install"
}

# show NAME COMMAND...: runs it visibly on a terminal, else into build/results/NAME.log, of which
# the relevant part is shown if it fails.
show() {
  local log=build/results/$1.log
  shift
  mkdir -p build/results
  if [ -t 2 ]; then
    "$@" >&2
  elif ! "$@" >"$log" 2>&1; then
    grep -vE '^ *[0-9]+/[0-9]+ Test.*Passed|^ +Start |^\[[0-9]+/[0-9]+\]|^-- ' "$log" | tail -n 80 >&2
    say "dev: failed: $* (all of it: $log)"
    return 1
  fi
}

# build PRESET [TARGET...]: configures and builds by the presets of that name.
build() {
  local preset=$1
  shift
  notice_compiler
  show "configure-$preset" cmake --preset "$preset" || exit 1
  show "build-$preset" cmake --build --preset "$preset" ${1:+--target} "$@" || exit 1
}

# workflow PRESET...: configures, builds and tests by the workflow presets of those names; a line for each
# counts its tests. All are run even if some fail.
workflow() {
  local preset status=0
  notice_compiler
  for preset in "$@"; do
    rm -f "build/results/$preset.xml"
    show "$preset" cmake --workflow --preset "$preset" || status=1
    echo "$preset:"
    if [ -f "build/results/$preset.xml" ]; then
      awk -f tools/check/count.awk "build/results/$preset.xml"
    else
      echo "0 passed, 1 failed"
    fi
  done
  return $status
}

# Another compiler in CXX is another configuration: CMake would keep the first.
notice_compiler() {
  mkdir -p build/results
  [ "$(cat build/compiler 2>/dev/null)" = "${CXX:-c++}" ] ||
    rm -rf build/{release,bench}/CMakeCache.txt build/{release,bench}/CMakeFiles
  echo "${CXX:-c++}" >build/compiler
}

# check STATUS WHAT: a verdict of a step's own, for verdicts to count.
passed=0 failed=0
check() {
  if [ "$1" = 0 ]; then passed=$((passed + 1)); else failed=$((failed + 1)); echo "failed: $2"; fi
}
verdicts() {
  echo "$passed passed, $failed failed"
  [ $failed = 0 ]
}

# step NAME: what steps.txt says of it; then its script, which may set `status` and call `check`.
step() {
  local name=$1 packages workflows status=0
  shift
  IFS='|' read -r _ _ packages workflows < <(grep "^$name " tools/check/steps.txt)
  need $packages
  [ -z "$workflows" ] || workflow $workflows || status=1
  if [ -f "tools/check/$name.sh" ]; then . "tools/check/$name.sh"; fi
  [ $((passed + failed)) = 0 ] || verdicts || status=1
  return $status
}
