need clang lld libc++-dev libc++abi-dev g++-multilib binutils
workflow "flags${ZEPH_FLAGS:+-$ZEPH_FLAGS}"
