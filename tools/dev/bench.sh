# ./dev bench [FILTER]: measures against the peers; a whole run rewrites docs/performance.md.
packages_bench="libbenchmark-dev libboost-dev libhwy-dev libeigen3-dev libopenblas-dev libglm-dev
  libcglm-dev pkg-config python3"
need $packages_build $packages_bench
configure build/bench -DCMAKE_BUILD_TYPE=Release -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF \
  -DZEPH_BUILD_BENCH=ON
say "dev: building the benchmarks"
build build/bench
if [ $# -gt 0 ]; then
  exec build/bench/bench/zeph_bench --filter "$1"
fi
exec build/bench/bench/zeph_bench --write docs
