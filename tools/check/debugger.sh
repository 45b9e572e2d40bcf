# gdb shows every type as tests/debugger/views.txt says, with the printers loaded from where they are
# installed; the natvis names only members that exist.
need gdb python3
prefix=$PWD/build/debug/prefix
mkdir -p build/debugger
build debug ZEPHDataStructureEngine zeph_selftest
cmake --install build/debug >/dev/null
library=$(dirname "$(find "$prefix" -name 'libZEPHDataStructureEngine.so' | head -1)")
g++ -std=c++17 -g -O0 -I "$prefix/include" tests/debugger/views.cpp \
  -o build/debugger/views -L "$library" -lZEPHDataStructureEngine -Wl,-rpath,"$library"
cat >build/debugger/commands <<GDB
set auto-load safe-path /
set debug-file-directory $prefix
add-auto-load-scripts-directory $prefix/share/gdb/auto-load
set print address off
set width 0
break Stop
run
up
GDB
for name in array none doubles matrix vector matrix4 vector3 two three four transform list keys stack counts shapes text; do
  printf 'echo %s =\noutput %s\necho \\n\n' $name $name >>build/debugger/commands
done
echo 'echo ----\n' >>build/debugger/commands
echo 'source tests/debugger/natvis_members.py' >>build/debugger/commands
gdb -nx -batch -x build/debugger/commands build/debugger/views >build/debugger/output 2>build/debugger/errors || true
sed -n '/^array =/,/^----$/p' build/debugger/output | sed 's/0x[0-9a-f]*/ADDRESS/g' >build/debugger/views.txt
grep -E 'no member|passed' build/debugger/output
if [ -s build/debugger/views.txt ] && diff tests/debugger/views.txt build/debugger/views.txt; then
  echo "$(grep -c =. tests/debugger/views.txt) passed, 0 failed"
else
  tail -n 5 build/debugger/errors
  echo "0 passed, 1 failed"
  exit 1
fi
grep -qE '^[0-9]+ passed, 0 failed' build/debugger/output
