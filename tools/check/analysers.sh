# By hand, half an hour: behind the two workflows the saved inputs of three fuzz targets under clang's memory
# sanitizer, those whose results the standard library's compiled part, which nobody instrumented, does not write; and
# every check of clang's static analyser. docs/reliability.md says what they found.
targets="sorts matrices graphics"
build memory $(printf 'zeph_fuzz_%s ' $targets)
for target in $targets; do
  outcome=0
  build/memory/fuzz/zeph_fuzz_$target -runs=0 "fuzz/corpus/$target" || outcome=1
  check $outcome "$target under the memory sanitizer"
done
# What these three report was looked at, and is named there.
checks=-*,clang-analyzer-*,-clang-analyzer-valist.Uninitialized,-clang-analyzer-cplusplus.PlacementNew
checks+=,-clang-analyzer-optin.cplusplus.UninitializedObject
show configure-tidy cmake --preset tidy
outcome=0
git ls-files 'src/*.cpp' | xargs -P "$jobs" -n 4 clang-tidy -p build/tidy --quiet --checks="$checks" || outcome=1
check $outcome "clang's static analyser"
