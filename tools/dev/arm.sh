# ./dev arm: every kernel on 64-bit ARM processors by LLVM's models, which is no measurement; writes
# docs/arm.md. Takes some minutes.
need $packages_build g++-aarch64-linux-gnu binutils-aarch64-linux-gnu clang googletest llvm-19 python3 qemu-user
build aarch64 zeph_arm_model
python3 tools/arm_model/model.py build/aarch64/tools/arm_model/zeph_arm_model --page docs/arm.md
