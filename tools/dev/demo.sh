# ./dev demo [FILE] [SOLID.obj]: builds the library and its tour in Release, and takes the tour on the numbers
# in FILE (the flow of the Nile where none is given), drawing SOLID.obj (or an icosahedron).
demo_files=()
for word in "$@"; do
  case "$word" in
    -*) fail "./dev demo takes files, not \"$word\"" ;;
    /*) demo_files+=("$word") ;;
    *) demo_files+=("$here/$word") ;;
  esac
done
need $packages_build $packages_test
say "dev: building the tour (about a minute the first time)"
build release zeph_tour
exec build/release/examples/tour --out build/demo/pictures "${demo_files[@]}"
