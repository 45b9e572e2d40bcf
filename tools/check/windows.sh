# The whole suite, the examples and the tour as 64-bit Windows programs under Wine; the numeric suites, the digests and the
# tour once more on each form of the kernels that this processor runs, also of clang++'s DLL; the kernels' tests with the
# stack 16 bytes lower, where a wide aligned move would fault; what 32-bit Windows needs, where a Wine for it can be had.
# Wine sometimes loses its server or cannot start a child: a program that fails is run again.
forms=(portable)
if grep -qw avx2 /proc/cpuinfo; then forms+=(avx2); fi
if grep -qw avx512vl /proc/cpuinfo; then forms+=(avx512); fi
workflow windows windows-low-stack "${forms[@]/#/windows-}" "${forms[@]/#/windows-clang-}" || status=1
if tools/wine32/fetch.sh; then
  workflow windows32 || status=1
else
  build windows32
  echo "32-bit Windows: built, not run, as no 32-bit Wine could be had"
fi
