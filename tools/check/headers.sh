need clang
failed=0 passed=0
work=build/headers
mkdir -p $work
for header in include/*.h; do
  name=$(basename "$header")
  printf '#include "%s"\nint main() { return 0; }\n' "$name" >$work/${name%.h}.cpp
  for compiler in g++ clang++; do
    for standard in 17 20 2b; do
      if $compiler -std=c++$standard -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow \
        -Werror -I include $work/${name%.h}.cpp; then
        passed=$((passed + 1))
      else
        echo "$name, $compiler, C++$standard"
        failed=$((failed + 1))
      fi
    done
  done
done
echo "$passed passed, $failed failed"
[ $failed = 0 ]
