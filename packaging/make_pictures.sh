#!/usr/bin/env bash
# Pictures of all forms for the help, from the real program:
#   packaging/make_pictures.sh [FOLDER [dark]]     default: resources/help/images
# A form that cannot be loaded is left out and named. A topic that does not show its form's picture yet gets it below its
# heading. The two dialogs that list folders have no picture: it would show the machine that it was made on.
set -euo pipefail
cd "$(dirname "$0")/.."
target=${1:-resources/help/images}
build=build/release
[ -f $build/build.ninja ] || cmake --preset release
cmake --build --preset release --target make_pictures tarvokol_resources
mkdir -p "$target"
QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 $build/tests/pictures/make_pictures examples/Contour_Bench_Shallow.TKL "$target" ${2:-} || echo "some forms are left out"
[ "$target" = resources/help/images ] || exit 0
rm -f "$target/helpWindow.png"
for picture in "$target"/frm*.png; do
    form=$(basename "$picture" .png)
    topic=resources/help/${form%%_*}.htm
    grep -q "images/$form.png" "$topic" && continue
    sed -i "s|^<h1>\(.*\)</h1>$|&\n<p><img src=\"images/$form.png\" alt=\"\1\" /></p>|" "$topic"
done
