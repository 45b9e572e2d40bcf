# The suite under memcheck: uninitialised reads, accesses outside blocks, leaks. A scaled-down run
# on the static library with AVX2 kernels: valgrind does not know AVX-512.
need valgrind libc6-dbg
ZEPH_VALGRIND_KERNELS=portable
! grep -qw avx2 /proc/cpuinfo || ZEPH_VALGRIND_KERNELS=avx2
export ZEPH_VALGRIND_KERNELS
echo "kernels: $ZEPH_VALGRIND_KERNELS"
workflow valgrind
