need clang libclang-rt-14-dev
workflow threads
