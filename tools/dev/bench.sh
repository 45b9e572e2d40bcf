# ./dev bench [FILTER]: measures against the peers; a whole run rewrites docs/performance.md.
packages_bench="libbenchmark-dev libboost-dev libhwy-dev libeigen3-dev libopenblas-dev libglm-dev
  libcglm-dev pkg-config python3"
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
