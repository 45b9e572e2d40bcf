# The library by every other compiler that Debian 12 has, each with its digests. Not run by the continuous integration.
need ${compilers:=g++-11 clang-13 clang-15 clang-16}
for compiler in $compilers; do
  compiler=${compiler/clang-/clang++-}
  folder=build/compilers/$compiler
  status=0
  show "configure-$compiler" cmake -G Ninja -S . -B "$folder" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Release \
    -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF -DZEPH_WARNINGS_AS_ERRORS=ON &&
    show "build-$compiler" cmake --build "$folder" --target zeph_selftest &&
    "$folder/tools/selftest/zeph-selftest" | tail -n 3 || status=1
  check $status "$compiler: builds without a warning, and every digest that must match does"
done
verdicts
