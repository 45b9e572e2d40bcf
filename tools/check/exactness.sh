# The same bits on every build. The numeric suites run on this system's libraries of every compiler and
# level, and as programs for this very processor; zeph-selftest compares its digests on those. The kernel
# forms, 32-bit x86, Windows and 64-bit ARM have both in the suites of their own steps.
need clang binutils python3 abigail-tools
status=0
workflow gcc-O0 gcc-O2 clang-O0 clang-O2 gcc-native clang-native || status=1
workflow clang-digest on-gcc-O2 on-clang-O0 on-clang-O2 on-clang || status=1

# One runtime serves all of this system's builds: what rests on it (sines, texts) is the same on them too.
for preset in gcc-O0 gcc-O2 release clang-O0 clang-O2 clang gcc-native clang-native; do
  build/$preset/tools/selftest/zeph-selftest
done | grep runtime-dependent | sed -E 's/ +[0-9]+ results +/: /; s/ +runtime-dependent.*//' | sort -u >build/results/runtime.txt
cat build/results/runtime.txt
check "$(cut -d: -f1-2 build/results/runtime.txt | uniq -d | wc -l)" "builds on one runtime differ"
verdicts && exit $status
