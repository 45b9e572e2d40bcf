# ./dev instructions [--update]: counts the instructions of tools/instructions/workload.cpp, a run per
# family and kernel form, and compares them with tools/instructions.txt, or writes that table.
case "${1:-}" in "" | --update) ;; *) fail "./dev instructions takes --update or nothing" ;; esac
need $packages_build $packages_test valgrind libc6-dbg python3
build static zeph_instructions
python3 -B tools/instructions/count.py build/static/tests/zeph_instructions "$@"
