#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Pictures of all forms for the help, from the real program, and of the worked studies, from the command line:
#   packaging/make_pictures.sh               into resources/help/images
#   packaging/make_pictures.sh FOLDER        into FOLDER/light, FOLDER/dark and FOLDER/double (200 %), to be looked at
# A form that cannot be loaded is left out and named. A topic that does not show its form's picture yet gets it below its
# heading. The dialogs that list folders show those of an engineer's home that exists for the program only; where the system
# permits no such view they are left out.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/release
program=$build/tests/pictures/make_pictures
project=examples/Contour_Bench_Shallow.TKL
documents=/home/engineer/Documents
screen=$(mktemp)
trap 'rm -f "$screen"' EXIT
# As large a screen as the forms may need: the platform's own is 800 pixels wide.
echo '{"screens":[{"name":"large","x":0,"y":0,"width":3840,"height":2160,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]}' > "$screen"

# pictures FOLDER SCALE [dark]
pictures() {
    mkdir -p "$1"
    QT_QPA_PLATFORM=offscreen:configfile=$screen QT_SCALE_FACTOR=$2 in_the_engineers_system "$1" ${3:-} \
        2> >(grep -v "This plugin\|XDG_RUNTIME" >&2) || echo "some forms are left out"
}

# Runs the program where the only home is the engineer's and the source lies in /opt.
in_the_engineers_system() {
    local target=$1
    shift
    if ! unshare --user --map-root-user --mount true 2> /dev/null; then
        $program $project "$target" "$@"
        return
    fi
    unshare --user --map-root-user --mount bash -euc '
        root=$(mktemp -d)
        mount -t tmpfs none "$root"
        for folder in bin dev etc lib lib64 proc sys tmp usr var; do
            [ -e /$folder ] || continue
            mkdir "$root/$folder"
            mount --rbind /$folder "$root/$folder"
        done
        mkdir -p "$root/opt/tarvokol" "$root/opt/pictures" "$root$1/MyOLTEK"
        mount --rbind . "$root/opt/tarvokol"
        mount --rbind "$2" "$root/opt/pictures"
        cp examples/*.TKL "$root$1/MyOLTEK"
        cd "$root/opt/tarvokol"
        exec chroot "$root" bash -c "cd /opt/tarvokol && exec $3 $4 /opt/pictures ${5:-}"
    ' bash $documents "$target" $program $project "$@"
}

# studies FOLDER: what the commands of the worked studies draw, as wide as the help shows it.
studies() {
    local draw="env QT_QPA_PLATFORM=offscreen $build/bin/tarvokol-cli"
    $draw sweep $project --vary WebThickness=2:8:0.25 --vary DepthCover=50:250:5 --of WebsOnly -q --force -o "$1/study_map.svg"
    $draw risk $project --random CoalStrength=lognormal:100%:15% -q --force -o "$1/study_risk.svg"
    # Its title is the file's name.
    cp examples/Tamsin_Ridge_Strengths.csv .
    $draw fit Tamsin_Ridge_Strengths.csv --column Strength -q --force -o "$1/study_fit.svg"
    rm Tamsin_Ridge_Strengths.csv
    # The help knows families by a single name.
    local picture height
    for picture in "$1"/study_*.svg; do
        height=$(sed -n 's/^ viewBox="0 0 720 \([0-9]*\)"$/\1/p' "$picture")
        sed -i "2s/width=.*/width=\"600\" height=\"$((height * 600 / 720))\"/; s/Arial, sans-serif/Arial/" "$picture"
    done
}

# A topic whose form has a picture shows it.
show_in_topics() {
    for picture in resources/help/images/frm*.png; do
        form=$(basename "$picture" .png)
        topic=resources/help/${form%%_*}.htm
        grep -q "images/$form.png" "$topic" && continue
        sed -i "s|^<h1>\(.*\)</h1>$|&\n<p><img src=\"images/$form.png\" alt=\"\1\" /></p>|" "$topic"
    done
}

[ -f $build/build.ninja ] || cmake --preset release
cmake --build --preset release --target make_pictures tarvokol_resources tarvokol-cli
if [ $# -gt 0 ]; then
    pictures "$1/light" 1
    pictures "$1/dark" 1 dark
    pictures "$1/double" 2
    studies "$1/light"
else
    pictures resources/help/images 1
    studies resources/help/images
    rm -f resources/help/images/helpWindow.png
    # A third of the size, in the help and in the manual, and nobody sees it.
    mogrify +dither -colors 256 -format png -define png:format=png8 resources/help/images/*.png
    show_in_topics
fi
