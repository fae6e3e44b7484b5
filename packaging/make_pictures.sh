#!/usr/bin/env bash
# Pictures of all forms for the help, from the real program:
#   packaging/make_pictures.sh [FOLDER [dark]]     default: resources/help/images
# A form that cannot be loaded is left out and named. Topics show a picture as <img src="images/FORM.png">.
set -euo pipefail
cd "$(dirname "$0")/.."
target=${1:-resources/help/images}
build=build/release
[ -f $build/build.ninja ] || cmake --preset release
cmake --build --preset release --target make_pictures tarvokol_resources
QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 $build/tests/pictures/make_pictures examples/Contour_Bench_Shallow.TKL "$target" ${2:-}
