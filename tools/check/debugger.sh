# gdb shows every type as tests/debugger/views.txt says, on a library with debug information and on a release
# without, with the printers loaded from where they are installed; the natvis names only members that exist.
need gdb python3
mkdir -p build/debugger

# debugged PRESET PREFIX: builds the library by the preset, installs it, and a program with -g over it.
debugged() {
  build "$1" ZEPHDataStructureEngine zeph_selftest
  cmake --install "build/$1" --prefix "$2" >/dev/null
  library=$(dirname "$(find "$2" -name 'libZEPHDataStructureEngine.so' | head -1)")
  g++ -std=c++17 -g -O0 -I "$2/include" tests/debugger/views.cpp \
    -o "build/debugger/views-$1" -L "$library" -lZEPHDataStructureEngine -Wl,-rpath,"$library"
}

# views PRESET COMMAND...: what gdb shows of that program after the commands, compared.
views() {
  local preset=$1
  shift
  {
    printf '%s\n' "$@" 'set print address off' 'set width 0' 'break Stop' run up
    for name in $(sed -n 's/ =.*//p' tests/debugger/views.txt); do
      printf 'echo %s =\noutput %s\necho \\n\n' "$name" "$name"
    done
    echo 'echo ----\n'
    [ "$preset" = release ] || echo 'source tests/debugger/natvis_members.py'
  } >build/debugger/commands
  gdb -nx -batch -x build/debugger/commands "build/debugger/views-$preset" \
    >"build/debugger/output-$preset" 2>"build/debugger/errors-$preset" || true
  sed -n '/^array =/,/^----$/p' "build/debugger/output-$preset" | sed 's/0x[0-9a-f]*/ADDRESS/g' \
    >"build/debugger/views-$preset.txt"
  local status=0
  diff tests/debugger/views.txt "build/debugger/views-$preset.txt" || status=1
  ! grep -E 'Error|version' "build/debugger/errors-$preset" || status=1
  check $status "the views on the $preset library (build/debugger/errors-$preset)"
}

prefix=$PWD/build/debug/prefix  # where the preset says that it will stand
debugged debug "$prefix"
views debug 'set auto-load safe-path /' "set debug-file-directory $prefix" \
  "add-auto-load-scripts-directory $prefix/share/gdb/auto-load"
grep -E 'no member' build/debugger/output-debug || true
try "members that the natvis names" grep -qE '^[0-9]+ passed, 0 failed' build/debugger/output-debug

prefix=$PWD/build/debugger/release
debugged release "$prefix"
status=0
! readelf -S "$library/libZEPHDataStructureEngine.so" | grep -q debug_info || status=1
check $status "a release without debug information"
views release "source $prefix/share/ZEPHDataStructureEngine/zeph_printers.py"
verdicts
