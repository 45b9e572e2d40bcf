# ./dev bench [FILTER]: measures against the peers; a whole run rewrites docs/performance.md. `./dev bench windows`
# compares the Windows build, under Wine, with the Linux build instead, and rewrites the page's section on it.
if [ "${1:-}" = windows ]; then
  need $packages_build $packages_test python3 g++-mingw-w64-x86-64-posix wine64 wine googletest
  build release zeph_system_speed
  build windows zeph_system_speed
  export WINEPREFIX=$PWD/build/windows/wine WINEDEBUG=-all
  export WINEPATH="Z:/usr/x86_64-w64-mingw32/lib;Z:/usr/lib/gcc/x86_64-w64-mingw32/12-posix;Z:$PWD/build/windows/src"
  exec python3 tools/dev/bench_windows.py docs/performance.md build/release/tools/system_speed/zeph_system_speed \
    wine build/windows/tools/system_speed/zeph_system_speed.exe
fi
packages_bench="libbenchmark-dev libboost-dev libhwy-dev libeigen3-dev libopenblas-dev libglm-dev
  libcglm-dev libtbb-dev pkg-config python3"
need $packages_build $packages_bench
say "dev: building the benchmarks"
build bench
if [ $# -gt 0 ]; then
  exec build/bench/bench/zeph_bench --filter "$1"
fi
status=0
build/bench/bench/zeph_bench --write docs || status=$?  # 1 where a target is missed
python3 tools/bench/summary.py docs/performance.md
exit $status
