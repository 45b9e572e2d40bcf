# The whole suite as 64-bit ARM programs under QEMU. Long exhaustive tests run a sample, for an emulated
# processor takes many times as long; the million results per subsystem of zeph-selftest are not sampled.
need g++-aarch64-linux-gnu qemu-user googletest
workflow aarch64
