# The whole suite as 32-bit x86 programs, where `long` really has 32 bits.
need g++-12-multilib googletest
workflow x86-32
