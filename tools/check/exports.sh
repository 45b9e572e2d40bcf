# What the libraries export, optimised and not, is what the manifests list and the headers declare; and nothing binary
# about the interface breaks programs built against the previous release.
need clang binutils python3 g++-mingw-w64-x86-64-posix abigail-tools googletest
workflow gcc-O0 gcc-O2 windows-O0 windows-O2
