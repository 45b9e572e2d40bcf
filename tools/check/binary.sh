# What the loader sees: full RELRO, immediate binding, no executable stack, no text relocations, stack
# protector, no detour on calls between our own functions; and two builds of this tree in different places are the same bytes.
need binutils
passed=0 failed=0
verdict() { # NAME COMMAND...: the command's success
  if eval "$2"; then passed=$((passed + 1)); else failed=$((failed + 1)); echo "failed: $1"; fi
}
for place in here there/deeper; do
  rm -rf "build/binary/$place"
  mkdir -p "build/binary/$place/tree"
  tar -c --exclude=./build --exclude=./.git . | tar -x -C "build/binary/$place/tree"
  (cd "build/binary/$place/tree"
   CCACHE_DISABLE=1 configure build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF
   CCACHE_DISABLE=1 build build ZEPHDataStructureEngine)
done
one=build/binary/here/tree/build/src/libZEPHDataStructureEngine.so
two=build/binary/there/deeper/tree/build/src/libZEPHDataStructureEngine.so
verdict "RELRO" "readelf -lW $one | grep GNU_RELRO >/dev/null"
verdict "immediate binding" "readelf -dW $one | grep -E 'BIND_NOW|FLAGS.*NOW' >/dev/null"
verdict "no executable stack" "readelf -lW $one | grep GNU_STACK | grep 'RW ' >/dev/null"
verdict "no text relocations" "! readelf -dW $one | grep TEXTREL >/dev/null"
verdict "stack protector" "nm -D $one | grep __stack_chk_fail >/dev/null"
# A slot of the loader's table for a name that the library defines itself; data (vtables, counters) has one.
verdict "direct calls between our own functions" \
  "! readelf -rW $one | awk '/JUMP_SLO|GLOB_DAT/ && \$4 !~ /^0+\$/ {print \$5}' | grep -vE '^_ZT|m_nObject'"
verdict "no run path" "! readelf -dW $one | grep -E 'RPATH|RUNPATH' >/dev/null"
verdict "only the language's libraries" "! readelf -dW $one | grep NEEDED | grep -vE 'libstdc\+\+|libm\.|libgcc_s|libc\.|ld-linux'"
verdict "the same bytes twice" "cmp $one $two"
echo "$passed passed, $failed failed"
[ $failed = 0 ]
