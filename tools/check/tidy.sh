show configure-tidy cmake --preset tidy
git ls-files 'src/*.cpp' | xargs -P "$jobs" -n 4 clang-tidy -p build/tidy --quiet
