# The caller's and the library's threads under the thread sanitizer; and the same digests on any
# number of threads.
need clang libclang-rt-14-dev
status=0
workflow threads || status=1
build release ZEPHDataStructureEngine zeph_selftest
for threads in 1 2 3 8; do
  try "digests on $threads threads" build/release/tools/selftest/zeph-selftest --threads $threads
done
verdicts && exit $status
