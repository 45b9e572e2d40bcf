need clang
workflow clang
