# ./dev demo [FILE] [SOLID.obj]: builds the library and its tour in Release, and takes the tour.
need $packages_build
configure build/demo -DCMAKE_BUILD_TYPE=Release -DZEPH_BUILD_TESTS=OFF
say "dev: building the tour (about a minute the first time)"
build build/demo zeph_tour
exec build/demo/examples/tour --out build/demo/pictures "$@"
