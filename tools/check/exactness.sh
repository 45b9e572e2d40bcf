# This system's builds share one runtime: results that depend on it (sines, texts) are the same on them too.
for preset in gcc-O0 gcc-O2 release clang-O0 clang-O2 clang gcc-native clang-native; do
  build/$preset/tools/selftest/zeph-selftest
done | grep runtime-dependent | sed -E 's/ +[0-9]+ results +/: /; s/ +runtime-dependent.*//' | sort -u >build/results/runtime.txt
cat build/results/runtime.txt
check "$(cut -d: -f1-2 build/results/runtime.txt | uniq -d | wc -l)" "builds on one runtime differ"
