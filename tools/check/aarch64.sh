# The whole suite as 64-bit ARM programs under QEMU, then what a model of the processor says of the NEON kernels.
# Long exhaustive tests run a sample, since emulation is many times slower; the million results per
# subsystem of zeph-selftest are not sampled.
need g++-aarch64-linux-gnu binutils-aarch64-linux-gnu qemu-user googletest clang llvm-19 python3
status=0
workflow aarch64 || status=1

# Digests of either form of the kernels, by builds for processors with all that those can do.
for processor in ampere1 apple-m1; do
  build "aarch64-$processor"
  for form in portable neon; do
    good=0
    qemu-aarch64 -cpu max -L /usr/aarch64-linux-gnu "build/aarch64-$processor/tools/selftest/zeph-selftest" \
      --kernels $form >"build/results/aarch64-$processor-$form.txt" || good=1
    check $good "the digests of the $form kernels built for $processor"
  done
done

build aarch64 zeph_arm_model
python3 tools/arm_model/model.py build/aarch64/tools/arm_model/zeph_arm_model --check || status=1
verdicts && exit $status
