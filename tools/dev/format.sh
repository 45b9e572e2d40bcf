# ./dev format: rewrites every source in the house format.
need clang-format
list_sources | xargs clang-format -i
