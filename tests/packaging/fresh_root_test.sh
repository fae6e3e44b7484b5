#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# fresh_root_test.sh RELEASE [PACKAGES]: installs the packages into a minimal Debian system of the release (bookworm, trixie)
# without recommended packages, and uses each there: the parts by themselves; the desktop program in place of the single package
# that all of them once were. Works with it as an engineer does (its window on an X server outside of that system, so that
# nothing is installed with it but what the packages ask for), removes it and looks for what is left. PACKAGES is their folder,
# or one of them; without it they are built in a bare system of the release first. Needs root and the Debian archive.
set -uo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/packaging/checks.sh"
. "$source/tests/packaging/minimal_system.sh"
become_root "$0" "$@"

release=${1:?RELEASE}
notes=$source/build/fresh_root/$release
mkdir -p "$notes"
packages=${2:-}
if [ -z "$packages" ]; then
    packages=$notes/packages
    rm -rf "$packages"
    "$source/tests/packaging/bare_system.sh" --take 'build/package/*.deb' "$packages" "$release" ./package || exit 1
fi
[ -d "$packages" ] || packages=$(dirname "$packages")
desktop="tarvokol tarvokol-cli tarvokol-cli-drawing tarvokol-doc"
for name in $desktop libtarvokol-engine1 libtarvokol-dev python3-tarvokol tarvokol-cli-dbgsym; do
    [ -e "$(echo "$packages/$name"_*.deb)" ] || { echo "no package $name in $packages"; exit 1; }
done
servants=()
trap 'kill "${servants[@]}" 2>/dev/null; remove_system' EXIT

inside() { timeout 1800 chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
as_engineer() {
    timeout 1800 chroot --userspec=1000:1000 "$root" env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME="$home" \
        DISPLAY="$DISPLAY" "$@"
}

# Files of the system; not those that name every package, nor the caches that any installation writes.
list_files() {
    (cd "$root" && find usr etc opt var -xdev \( -path var/lib/dpkg -o -path var/lib/apt -o -path var/cache -o -path var/log \
        -o -path usr/share/mime -o -path var/lib/systemd \) -prune -o -print | sort)
}

# install NAME...: of the packages that were built, as their file or by name what the archive has.
install() {
    local name files=()
    for name in "$@"; do
        if [ -e "$(echo "$packages/$name"_*.deb)" ]; then
            cp "$packages/$name"_*.deb "$root/tmp/"
            name=/tmp/$(cd "$packages" && echo "$name"_*.deb)
        fi
        files+=("$name")
    done
    inside apt-get install -y -qq --no-install-recommends "${files[@]}" > "$notes/log" 2>&1 && return
    tail -n 20 "$notes/log"
    fail "cannot be installed: $*"
    return 1
}

# remove LABEL NAME...: nothing is left of the packages.
remove() {
    local label=$1
    shift
    inside apt-get purge -y -qq "$@" > "$notes/log" 2>&1 || { tail -n 20 "$notes/log"; fail "cannot be removed: $*"; }
    same "what is left of $label" "" "$(list_files | grep -i tarvokol)"
}

# remove_all LABEL NAME...: nor of what came with them, also where a package of the minimal system recommends or suggests it.
remove_all() {
    remove "$1" --autoremove -o APT::AutoRemove::RecommendsImportant=false -o APT::AutoRemove::SuggestsImportant=false "${@:2}"
    same "what is left of what came with $1" "" "$(comm -13 "$notes/before" <(list_files))"
}

installed() { inside dpkg-query -W -f '${Package}\n' | sort; }

# By the checker of the same release, where that is this machine's.
look_with_lintian() {
    [ "$release" = "$(. /etc/os-release && echo "${VERSION_CODENAME:-}")" ] || return 0
    clean lintian lintian --no-cfg --allow-root --no-override --fail-on error,warning --tag-display-limit 0 "$packages"/*.deb
}

# The libraries of C and C++ are in every system.
use_the_command_line_alone() {
    local example=/usr/share/tarvokol/Contour_Bench_Shallow.TKL before said
    before=$(installed)
    install tarvokol-cli || return
    same "what comes with the command line" tarvokol-cli "$(comm -13 <(echo "$before") <(installed))"
    same "toolkit" "" "$(find "$root/usr/lib" -name '*Qt6*' -o -name 'libX11*')"
    holds "report" "$(inside tarvokol-cli results $example)" "STABILITY" "Contour_Bench_Shallow.TKL"
    holds "JSON" "$(inside tarvokol-cli results --json $example)" '"ok":true'
    holds "grid" "$(inside tarvokol-cli sweep -q $example --vary Height=5,6)" "Height (ft),"
    said=$(inside tarvokol-cli plan -o /tmp/none.png $example 2>&1)
    same "status of a picture" 3 $?
    holds "picture without the drawing" "$said" "install the package tarvokol-cli-drawing"
    # The copies of the examples are files, not links.
    inside bash -c "cp -rL /usr/share/doc/tarvokol/examples /tmp/panels && cd /tmp/panels && tarvokol-cli results -- *.TKL" \
        > "$notes/panels" || fail "copies of the examples"
    holds "copies of the examples" "$(cat "$notes/panels")" "Thick_Seam_Pit.TKL"
    # Their own names lead from a program to its symbols, and to the lines of the source.
    install tarvokol-cli-dbgsym || return
    local id
    id=$(readelf -n "$root/usr/bin/tarvokol-cli" | sed -n 's/.*Build ID: //p')
    holds "symbols" "$(readelf -SW "$root/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug")" .debug_line .symtab
    remove_all "the command line" tarvokol-cli tarvokol-cli-dbgsym
}

use_the_documents_alone() {
    install tarvokol-doc || return
    same "manual" "%PDF-" "$(inside head -c 5 /usr/share/doc/tarvokol/TARVOKOL.PDF)"
    [ -s "$root/usr/share/doc/tarvokol/recipes.md" ] || fail "no recipes"
    jq -e . "$root"/usr/share/doc/tarvokol/schema/*.json > /dev/null || fail "schemas"
    remove_all "the documents" tarvokol-doc
}

use_the_module() {
    install python3-tarvokol tarvokol-cli || return
    same "one figure of the module and of the command line" "[True]" "$(inside python3 -c "
import json, subprocess, numpy, tarvokol
path = '/usr/share/tarvokol/Contour_Bench_Shallow.TKL'
panel = tarvokol.read(path)
rows = tarvokol.factors(panel, WebThickness=numpy.array([panel.WebThickness]))
told = json.loads(subprocess.run(['tarvokol-cli', 'sweep', path, '--vary', f'WebThickness={panel.WebThickness!r}', '--json'],
                                 capture_output=True, text=True, check=True).stdout)
print((rows['WebsOnly'] == told['WebsOnly']).tolist())" 2>&1)"
    remove "the module" python3-tarvokol tarvokol-cli
}

# By a program of somebody else's.
use_the_library() {
    install libtarvokol-engine1 libtarvokol-dev g++ pkgconf || return
    cp "$source/tests/consumer/consumer.cpp" "$source/examples/Contour_Bench_Shallow.TKL" "$root/tmp/"
    # shellcheck disable=SC2016
    inside bash -c 'cd /tmp && g++ -std=c++20 consumer.cpp -o other $(pkg-config --cflags --libs tarvokol-engine)' ||
        fail "a program on the library"
    holds "what it tells" "$(inside /tmp/other /tmp/Contour_Bench_Shallow.TKL)" "project: Tamsin Ridge Mine" "factors: "
    holds "what it loads" "$(readelf -d "$root/tmp/other")" libtarvokol-engine.so.1
    remove "the library" libtarvokol-engine1 libtarvokol-dev
}

# make_single_package FILE: the files of the desktop's packages in one, as it was in 1.3.02.
make_single_package() {
    local tree name
    tree=$(mktemp -d)
    chmod 755 "$tree"
    for name in $desktop; do dpkg-deb -x "$(echo "$packages/$name"_*.deb)" "$tree"; done
    rm -rf "$tree"/usr/share/doc/tarvokol-*
    mkdir "$tree/DEBIAN"
    printf '%s\n' "Package: tarvokol" "Version: 1.3.02" "Architecture: $(dpkg --print-architecture)" "Maintainer: The TARVO-KOL authors" \
        "Description: design of highwall mining panels" > "$tree/DEBIAN/control"
    dpkg-deb --root-owner-group -Zgzip -z1 -b "$tree" "$1" > /dev/null
    rm -rf "$tree"
}

upgrade_the_single_package() {
    local file
    make_single_package "$root/tmp/single.deb" || { fail "no single package"; return 1; }
    install /tmp/single.deb || return
    install $desktop || return
    for file in /usr/bin/tarvokol-cli=tarvokol-cli /usr/bin/tarvokol=tarvokol \
        /usr/share/tarvokol/TARVOKOL.PDF=tarvokol-doc /usr/share/tarvokol/Contour_Bench_Shallow.TKL=tarvokol-cli \
        /usr/libexec/tarvokol/tarvokol-cli-drawing=tarvokol-cli-drawing; do
        same "owner of ${file%=*}" "${file#*=}: ${file%=*}" "$(inside dpkg-query -S "${file%=*}" 2>&1)"
    done
    same "what the upgrade damaged" "" "$(inside dpkg --verify $desktop)"
}

start_screen() {
    local number
    exec {number}< <(exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -ac 2>/dev/null)
    servants+=($!)
    read -r -t 20 -u "$number" DISPLAY || return 1
    export DISPLAY=:$DISPLAY
    openbox --sm-disable > /dev/null 2>&1 &
    servants+=($!)
    eventually "window manager" has_window_manager
}

# The engineer's home, with the welcome windows seen already; and a viewer for PDF that notes what it is given.
prepare_engineer() {
    local settings=$root$home/Documents/MyOLTEK
    mkdir -p "$settings"
    printf '%s\r\n' '[Version]' 'INIFileVersion=050924' '[Settings]' ShowDisclaim=0 RemindAnnualUpdates=0 MaxDisplaySize=16384 \
        DisplayFontSize=10 FileExtension=TKL '[TARVOKOLOptions]' PlotRangeMin=50 PlotRangeMax=100 \
        DefaultAbutment=21 > "$settings/TARVOKOL.INI"
    chown -R 1000:1000 "$root$home"
    cat > "$root/usr/local/bin/xdg-open" <<< $'#!/bin/sh\nhead -c 5 "$1" > /tmp/viewed\necho " $1" >> /tmp/viewed'
    chmod +x "$root/usr/local/bin/xdg-open"
}

# eventually LABEL COMMAND...
eventually() {
    local label=$1 end=$((SECONDS + 60))
    shift
    until "$@"; do
        [ $SECONDS -lt $end ] || { fail "$label"; import -window root "$notes/$label.png"; return 1; }
        sleep 0.1
    done
}

has_window_manager() { [[ $(xdotool get_num_desktops 2>/dev/null) == [1-9]* ]]; }
is_active() { [[ $(xdotool getactivewindow getwindowname 2>/dev/null) == $1 ]]; }
press() { sleep 0.3; xdotool key --clearmodifiers --delay 60 "$@"; }

work_in_windows() {
    local example=$home/Documents/MyOLTEK/Contour_Bench_Shallow.TKL program
    as_engineer env PATH=/usr/local/bin:/usr/bin:/bin tarvokol /usr/share/tarvokol/Contour_Bench_Shallow.TKL 2> "$notes/said" &
    program=$!
    servants+=($program)
    eventually "main window" is_active '*Contour_Bench_Shallow.TKL*' || return
    [ -s "$root$example" ] || fail "the example projects are not in the home"
    press F1
    eventually "help" is_active 'TARVO-KOL Help'
    press alt+F4
    eventually "main window after help" is_active '*Contour_Bench_Shallow.TKL*'
    press alt+h p
    eventually "manual" test -s "$root/tmp/viewed"
    sleep 0.2
    same "what the viewer gets" "%PDF- /usr/bin/../share/tarvokol/TARVOKOL.PDF" "$(cat "$root/tmp/viewed")"
    press alt+o Return
    eventually "report" is_active 'Calculation Results'
    press Escape
    eventually "main window after report" is_active '*Contour_Bench_Shallow.TKL*'
    press alt+f x
    wait $program
    same "exit status of the program" 0 $?
    same "what the program says" "" "$(grep -v XDG_RUNTIME_DIR "$notes/said")"
}

work_on_the_command_line() {
    local example=/usr/share/tarvokol/Contour_Bench_Shallow.TKL
    holds "report" "$(as_engineer tarvokol-cli results $example)" "STABILITY" "Contour_Bench_Shallow.TKL"
    as_engineer tarvokol-cli results -o /tmp/report.pdf $example || fail "report as PDF"
    holds "fonts of the report" "$(pdffonts "$root/tmp/report.pdf")" LiberationMono
    as_engineer tarvokol-cli curve sf-depth -o /tmp/curve.xlsx $example || fail "curve as workbook"
    same "workbook" PK "$(head -c 2 "$root/tmp/curve.xlsx")"
    as_engineer tarvokol-cli plan -o /tmp/plan.svg $example || fail "plan as SVG"
    as_engineer tarvokol-cli plan -o /tmp/plan.png $example || fail "plan as PNG"
    holds "picture of the plan" "$(identify "$root/tmp/plan.png")" PNG
}

# Without them icons and the drawings of the help are missing, and nobody says so.
look_for_the_readers_of_drawings() {
    local plugin
    for plugin in iconengines/libqsvgicon.so imageformats/libqsvg.so; do
        compgen -G "$root/usr/lib/*/qt6/plugins/$plugin" > /dev/null || fail "no $plugin"
    done
}

look_with_lintian
make_system "$release" || exit 1
inside apt-get update -qq
list_files > "$notes/before"
echo "the command line and the documents"
use_the_command_line_alone
use_the_documents_alone
echo "the desktop program"
upgrade_the_single_package || exit 1
look_for_the_readers_of_drawings
start_screen || { echo "no X server"; exit 1; }
prepare_engineer
work_in_windows
work_on_the_command_line
rm "$root/usr/local/bin/xdg-open"
# shellcheck disable=SC2086
remove_all "the program" $desktop
[ -s "$root$home/Documents/MyOLTEK/TARVOKOL.INI" ] || fail "the engineer's own files are gone"
# Last, since a compiler and Python leave files of their own.
echo "the module and the library"
use_the_module
use_the_library
finish
