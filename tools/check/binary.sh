# What the loader sees: full RELRO, immediate binding, no executable stack, no text relocations, stack
# protector, no indirection in calls between our own functions; and two builds of this tree in
# different folders are byte-identical.
need binutils
status=0
workflow binary || status=1
mkdir -p build/binary
tar -cf build/binary/tree.tar --exclude=./build --exclude=./.git .
for place in here there/deeper; do
  rm -rf "build/binary/$place"
  mkdir -p "build/binary/$place/tree"
  tar -xf build/binary/tree.tar -C "build/binary/$place/tree"
  (cd "build/binary/$place/tree" && export CCACHE_DISABLE=1 &&
    build gcc-O2 ZEPHDataStructureEngine)
done
library=tree/build/gcc-O2/src/libZEPHDataStructureEngine.so
same=0
cmp build/binary/here/$library build/binary/there/deeper/$library || same=1
check $same "the same bytes twice"
verdicts && exit $status
