# Independence of order and environment: every test program shuffled, and in places that a host or a build machine may
# have. A program that takes longer than two seconds is shuffled three times, the others as often as ZEPH_ORDERS
# says, twenty times by default. Not part of the integration.

build release
tests=$PWD/build/release
programs=("$tests"/tests/zeph_*_tests)
export LOCPATH=$tests/locales ZEPH_TEST_SAMPLE=1

# each WHAT WRAPPER...: a verdict on every program, run behind these words.
each() {
  local what=$1 outcome=0 program
  shift
  for program in "${programs[@]}"; do
    timeout 600 "$@" "$program" --gtest_brief=1 </dev/null >build/results/order-one.log 2>&1 ||
      { outcome=1; echo "$program"; tail -n 30 build/results/order-one.log; }
  done
  check $outcome "$what"
}

for program in "${programs[@]}"; do
  began=$SECONDS
  outcome=0
  for ((k = 1; k <= ${ZEPH_ORDERS:-20}; ++k)); do
    timeout 600 "$program" --gtest_shuffle --gtest_random_seed=$k --gtest_brief=1 </dev/null \
      >build/results/order-one.log 2>&1 || { outcome=1; echo "seed $k"; tail -n 30 build/results/order-one.log; }
    [ $k = 3 ] && [ $((SECONDS - began)) -gt 6 ] && break
  done
  check $outcome "$program shuffled"
done
outcome=0
ctest --test-dir "$tests" -L '^unit' -j "$jobs" --schedule-random --output-on-failure \
  >build/results/order.log 2>&1 || outcome=1
check $outcome "ctest in a random order, in parallel (build/results/order.log)"
each "from another folder" env --chdir=/
each "with the standard input closed" sh -c 'exec "$@" <&-' sh
each "without TMPDIR, HOME read-only" env -u TMPDIR HOME=/proc
if [ "$(id -u)" = 0 ]; then
  place=$(mktemp -d)  # the build's folder is not that user's to write
  chown 65534:65534 "$place"
  each "as an unprivileged user" setpriv --reuid=65534 --regid=65534 --clear-groups \
    env --chdir=/ HOME=/nonexistent TMPDIR="$place"
  rm -rf "$place"
  if unshare -m true 2>/dev/null; then
    each "without /proc" unshare -m sh -c 'umount -l /proc && exec "$@"' sh
  else
    echo "skipped: a place without /proc needs namespaces of its own"
  fi
else
  echo "skipped: another user and a place without /proc need root"
fi
