# Independence of order and environment: the suite shuffled, and in environments that a host or a
# build machine may have. Twenty orders by default, in ZEPH_ORDERS; about eight minutes. Not part of
# the integration.
need $packages_build $packages_test util-linux
build release
tests=build/release
run() { ctest --test-dir "$tests" -L '^unit' -j "$jobs" --schedule-random --output-on-failure >"build/results/order.log" 2>&1; }
shuffled() {
  # Each program whole, its tests in an order of their own.
  local program status=0
  for program in "$PWD/$tests"/tests/zeph_*_tests; do
    (cd "${2:-/tmp}" && timeout 600 "$program" --gtest_shuffle --gtest_random_seed="$1" --gtest_brief=1 </dev/null) \
      >build/results/order-one.log 2>&1 || { status=1; echo "$program, seed $1"; tail -n 30 build/results/order-one.log; }
  done
  return $status
}
export LOCPATH=$PWD/$tests/locales ZEPH_TEST_SAMPLE=1
for ((k = 1; k <= ${ZEPH_ORDERS:-20}; ++k)); do
  status=0; shuffled $k "$PWD" || status=1
  check $status "shuffled, seed $k"
done
status=0; run || status=1; check $status "ctest in a random order, in parallel (build/results/order.log)"
status=0; shuffled 101 / || status=1; check $status "from another folder"
status=0; (exec 0<&-; for program in $tests/tests/zeph_*_tests; do $program --gtest_brief=1 || exit 1; done) \
  >build/results/order-stdin.log 2>&1 || status=1; check $status "with the standard input closed"
status=0; (unset TMPDIR; HOME=/proc; export HOME; shuffled 102 "$PWD") || status=1; check $status "without TMPDIR, HOME read-only"
if [ "$(id -u)" = 0 ]; then
  status=0
  place=$(mktemp -d)  # the build's folder is not that user's to write
  chown 65534:65534 "$place"
  for program in "$PWD/$tests"/tests/zeph_*_tests; do
    (cd / && setpriv --reuid=65534 --regid=65534 --clear-groups env HOME=/nonexistent TMPDIR="$place" "$program" --gtest_brief=1 </dev/null) \
      >build/results/order-one.log 2>&1 || { status=1; echo "$program"; tail -n 30 build/results/order-one.log; }
  done
  rm -rf "$place"
  check $status "as an unprivileged user"
  if unshare -m true 2>/dev/null; then
    status=0
    for program in "$PWD/$tests"/tests/zeph_*_tests; do
      unshare -m sh -c 'umount -l /proc && exec "$0" --gtest_brief=1 </dev/null' "$program" \
        >build/results/order-one.log 2>&1 || { status=1; echo "$program"; tail -n 30 build/results/order-one.log; }
    done
    check $status "without /proc"
  else
    echo "skipped: a place without /proc needs namespaces of its own"
  fi
else
  echo "skipped: another user and a place without /proc need root"
fi
verdicts
