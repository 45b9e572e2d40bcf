# The same bits on every build. The numeric suites run on this system's libraries of every compiler and
# level, and as programs for this very processor; zeph-selftest compares its digests on those. The kernel
# forms, 32-bit x86, Windows and 64-bit ARM have both in the suites of their own steps; with
# ZEPH_PORTABLE_MATH the digests of all of them are compared here.
need clang binutils python3 abigail-tools g++-12-multilib g++-mingw-w64-x86-64-posix wine64 wine \
  g++-aarch64-linux-gnu qemu-user googletest
status=0
workflow gcc-O0 gcc-O2 clang-O0 clang-O2 gcc-native clang-native || status=1
workflow clang-digest on-gcc-O2 on-clang-O0 on-clang-O2 on-clang || status=1

# All of this system's builds share one runtime: results that depend on it (sines, texts) are the
# same on them too.
for preset in gcc-O0 gcc-O2 release clang-O0 clang-O2 clang gcc-native clang-native; do
  build/$preset/tools/selftest/zeph-selftest
done | grep runtime-dependent | sed -E 's/ +[0-9]+ results +/: /; s/ +runtime-dependent.*//' | sort -u >build/results/runtime.txt
cat build/results/runtime.txt
check "$(cut -d: -f1-2 build/results/runtime.txt | uniq -d | wc -l)" "builds on one runtime differ"

# With ZEPH_PORTABLE_MATH the suite passes as well (g++, optimised), and every line decides, also
# texts and random numbers.
workflow portable-math || status=1
export WINEPREFIX=$PWD/build/portable/windows/wine WINEDEBUG=-all
WINEPATH="Z:/usr/x86_64-w64-mingw32/lib;Z:/usr/lib/gcc/x86_64-w64-mingw32/12-posix;Z:$PWD/build/portable/windows/src"
export WINEPATH
for preset in gcc-O0 gcc-O2 clang-O0 clang-O2 clang gcc-native clang-native x86-32 windows aarch64; do
  differs=0 dir=build/portable/$preset
  {
    cmake --preset "$preset" -B "$dir" -DZEPH_PORTABLE_MATH=ON && cmake --build "$dir" --target zeph_selftest &&
      ctest --test-dir "$dir" -R '^digest$' --no-tests=error --verbose
  } >"build/results/portable-$preset.txt" 2>&1 </dev/null || differs=1
  grep -E ' results +[0-9a-f]{16} ' "build/results/portable-$preset.txt" | sed -E 's/^[0-9]+: //; s/\r//'
  check $differs "portable $preset: build/results/portable-$preset.txt"
done | awk '/ results / {++count[$0]; next} {print} END {for (line in count) print line "  " count[line] " portable builds"}' |
  sort | tee build/results/portable.txt
check "$(grep -c '^failed' build/results/portable.txt)" "portable builds differ"
verdicts && exit $status
