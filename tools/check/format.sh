need clang-format
list_sources | xargs clang-format --dry-run --Werror
