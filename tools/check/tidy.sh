build clang ZEPHDataStructureEngine
git ls-files 'src/*.cpp' | xargs -P "$jobs" -n 4 clang-tidy -p build/clang --quiet
