# ./dev format: rewrites every source in the house format.
need clang-format
find include src tests examples bench fuzz tools web -name '*.h' -o -name '*.cpp' | xargs clang-format -i
