# The tour runs to its end, and every kind of bad input is one clear line and status 2.
configure build/demo -DCMAKE_BUILD_TYPE=Release -DZEPH_BUILD_TESTS=OFF
build build/demo zeph_tour
work=build/demo/inputs
mkdir -p $work
passed=0 failed=0
expect() { # STATUS PATTERN ARGUMENT...
  local wanted=$1 pattern=$2 status=0
  shift 2
  build/demo/examples/tour --out $work/pictures "$@" >$work/out 2>$work/err || status=$?
  if [ "$status" = "$wanted" ] && [ "$(wc -l <$work/err)" -le 1 ] && grep -qF -- "$pattern" $work/err $work/out; then
    passed=$((passed + 1))
  else
    echo "tour $*: status $status, wanted $wanted and \"$pattern\""
    cat $work/err
    failed=$((failed + 1))
  fi
}
: >$work/empty.txt
printf '1 2\n3 x 4\n' >$work/letter.txt
printf '5\n' >$work/one.txt
printf '2 1e400\n' >$work/huge.txt
expect 0 'Pictures are in'
expect 0 'Pictures are in' $work/one.txt
expect 2 "$work/missing.txt: cannot be opened" $work/missing.txt
expect 2 "$work/empty.txt:1:1: there are no numbers" $work/empty.txt
expect 2 "$work/letter.txt:2:3: \"x\" is not a number" $work/letter.txt
expect 2 "$work/huge.txt:1:3: \"1e400\" is not a number" $work/huge.txt
echo "$passed passed, $failed failed"
[ $failed = 0 ]
