need clang lld libc++-dev libc++abi-dev g++-12-multilib binutils
workflow "flags${ZEPH_FLAGS:+-$ZEPH_FLAGS}"
