# Every way of taking the library into a project, built and run. The Windows import library is the
# ninth; the step "windows" takes it.
need pkg-config
top=$PWD
work=$top/build/consumers
rm -rf "$work"
mkdir -p "$work"
passed=0 failed=0
options=(-G Ninja -DCMAKE_BUILD_TYPE=Release)

configure "$work/shared" -DCMAKE_BUILD_TYPE=Release -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF \
  -DCMAKE_INSTALL_LIBDIR=lib
build "$work/shared"
cmake --install "$work/shared" --prefix "$work/prefix" >/dev/null
configure "$work/archive" -DCMAKE_BUILD_TYPE=Release -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF \
  -DCMAKE_INSTALL_LIBDIR=lib -DZEPH_SHARED=OFF
build "$work/archive"
cmake --install "$work/archive" --prefix "$work/static-prefix" >/dev/null

project() { # NAME FOLDER CMAKE-OPTION...: configure, build, run
  local name=$1 folder=$2
  shift 2
  cmake -S "tests/consumers/$folder" -B "$work/$name" "${options[@]}" "$@" &&
    cmake --build "$work/$name" && "$work/$name/app" >"$work/$name/out"
}
verdict() { # NAME STATUS: the program ran and printed the sorted values
  if [ "$2" = 0 ] && [ "$(cat "$work/$1/out")" = "1 2 3" ]; then
    echo "consumer $1: ok"
    passed=$((passed + 1))
  else
    echo "consumer $1: FAILED"
    failed=$((failed + 1))
  fi
}
status=0; project find_package find_package -DCMAKE_PREFIX_PATH="$work/prefix" || status=1
verdict find_package $status

status=0; project add_subdirectory add_subdirectory -DZEPH_SOURCE="$top" || status=1
cmake "$work/add_subdirectory" || status=1  # it compares the second configuration with the first
cmake --install "$work/add_subdirectory" --prefix "$work/add_subdirectory/prefix" >/dev/null || status=1
[ ! -e "$work/add_subdirectory/prefix/include" ] || status=1  # our install rules stay out
verdict add_subdirectory $status

status=0; project fetch_content fetch_content -DZEPH_SOURCE="$top" || status=1
verdict fetch_content $status

mkdir -p "$work/moved prefix"
cp -a "$work/prefix" "$work/moved prefix/here"
mv "$work/prefix" "$work/prefix.away"  # nothing may still point at the old place
status=0; project moved find_package -DCMAKE_PREFIX_PATH="$work/moved prefix/here" || status=1
verdict moved $status
mv "$work/prefix.away" "$work/prefix"

status=0; project static find_package -DCMAKE_PREFIX_PATH="$work/static-prefix" || status=1
! ldd "$work/static/app" | grep -q ZEPH || status=1
verdict static $status

mkdir -p "$work/pkg_config"
status=0
flags=$(PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig" pkg-config --cflags --libs 'ZEPHDataStructureEngine >= 0.1') &&
  eval "g++ -std=c++17 -o '$work/pkg_config/app' tests/consumers/app.cpp $flags -Wl,-rpath,'$work/prefix/lib'" &&
  "$work/pkg_config/app" >"$work/pkg_config/out" || status=1
verdict pkg_config $status

mkdir -p "$work/makefile"
status=0
make -s -C tests/consumers/makefile PREFIX="$work/prefix" OUT="$work/makefile/app" &&
  "$work/makefile/app" >"$work/makefile/out" || status=1
verdict makefile $status

mkdir -p "$work/wrong_version"
if cmake -S tests/consumers/wrong_version -B "$work/wrong_version/build" "${options[@]}" \
  -DCMAKE_PREFIX_PATH="$work/prefix" >"$work/wrong_version/log" 2>&1; then
  status=1
else
  grep -q 'compatible with requested version' "$work/wrong_version/log" && status=0 || status=1
fi
echo "1 2 3" >"$work/wrong_version/out"  # refusal is the result; there is no program
verdict wrong_version $status

echo "$passed passed, $failed failed"
[ $failed = 0 ]
