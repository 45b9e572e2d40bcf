need clang-tidy clang
configure build/clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_WARNINGS_AS_ERRORS=ON -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
git ls-files 'src/*.cpp' | xargs -P "$jobs" -n 4 clang-tidy -p build/clang --quiet
