# ./dev docs: the HTML documentation in build/docs/html, with pictures that the examples draw.
need $packages_build $packages_test doxygen librsvg2-bin python3 emscripten chromium googletest
say "dev: building the examples"
build release zeph_tour zeph_sort_race
docs_pictures=build/docs/pictures
mkdir -p $docs_pictures
say "dev: drawing the pictures"
build/release/examples/tour --out $docs_pictures >$docs_pictures/tour.txt
build/release/examples/sort_race $docs_pictures/sort_race.svg
for picture in $docs_pictures/*.svg; do
  rsvg-convert -o "${picture%.svg}.png" "$picture"  # a picture that cannot be drawn stops here
done
say "dev: building the playground"
build wasm zeph_playground
# A picture of the playground after the race, by a headless browser.
chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --window-size=1280,1500 --virtual-time-budget=20000 \
  --screenshot=$docs_pictures/playground.png "file://$PWD/build/wasm/playground/index.html" >build/docs/playground.log 2>&1
say "dev: writing the pages"
rm -rf build/docs/html
ZEPH_VERSION=$(sed -nE 's/^project\(.* VERSION ([0-9.]+).*/\1/p' CMakeLists.txt) doxygen docs/Doxyfile >build/docs/doxygen.log 2>&1 ||
  { grep -E 'warning:|error:' build/docs/doxygen.log >&2; fail "doxygen failed, or the documentation has gaps (build/docs/doxygen.log)"; }
# Shows the include line that a program writes: the installed folder and the main header.
sed -i -E 's,(#include &lt;)(([a-z]+)/[a-z0-9_]+|([a-z0-9_]+))\.h,\1ZEPHDataStructureEngine/\3\4.h,' build/docs/html/{class,struct}*.html
cp -R build/wasm/playground build/docs/html/playground
echo "build/docs/html/index.html"
