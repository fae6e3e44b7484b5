#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# fresh_root_test.sh RELEASE [PACKAGE]: installs the package into a minimal Debian system of the release (bookworm, trixie)
# without recommended packages, works there with the program as an engineer does (its window on an X server outside of that
# system, so that nothing is installed with it but what the package asks for), removes the package and looks for what is
# left. Without PACKAGE it is built in a bare system of the release first. Needs root and the Debian archive.
set -uo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/packaging/checks.sh"
. "$source/tests/packaging/minimal_system.sh"
become_root "$0" "$@"

release=${1:?RELEASE}
notes=$source/build/fresh_root/$release
mkdir -p "$notes"
package=${2:-}
if [ -z "$package" ]; then
    rm -rf "$notes/package"
    "$source/tests/packaging/bare_system.sh" --take 'build/package/tarvokol_*.deb' "$notes/package" "$release" ./package || exit 1
    package=$(echo "$notes"/package/tarvokol_*.deb)
fi
[ -e "$package" ] || { echo "no package: $package"; exit 1; }
servants=()
trap 'kill "${servants[@]}" 2>/dev/null; remove_system' EXIT

inside() { timeout 300 chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
as_engineer() {
    timeout 300 chroot --userspec=1000:1000 "$root" env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME="$home" \
        DISPLAY="$DISPLAY" "$@"
}

# Files of the system; not those that name every package, nor the caches that any installation writes.
list_files() {
    (cd "$root" && find usr etc opt var -xdev \( -path var/lib/dpkg -o -path var/lib/apt -o -path var/cache -o -path var/log \
        -o -path usr/share/mime -o -path var/lib/systemd \) -prune -o -print | sort)
}

install_package() {
    cp "$package" "$root/tmp/tarvokol.deb"
    inside apt-get update -qq &&
        inside apt-get install -y -qq --no-install-recommends /tmp/tarvokol.deb
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

remove_package() {
    inside apt-get purge -y -qq --autoremove tarvokol || return
    same "what is left of the package" "" "$(list_files | grep -i tarvokol)"
    same "what is left of what came with it" "" "$(comm -13 "$notes/before" <(list_files))"
}

# Without them icons and the drawings of the help are missing, and nobody says so.
look_for_the_readers_of_drawings() {
    local plugin
    for plugin in iconengines/libqsvgicon.so imageformats/libqsvg.so; do
        compgen -G "$root/usr/lib/*/qt6/plugins/$plugin" > /dev/null || fail "no $plugin"
    done
}

make_system "$release" || exit 1
inside apt-get update -qq
list_files > "$notes/before"
install_package > "$notes/log" 2>&1 || { tail -n 20 "$notes/log"; exit 1; }
look_for_the_readers_of_drawings
start_screen || { echo "no X server"; exit 1; }
prepare_engineer
work_in_windows
work_on_the_command_line
rm "$root/usr/local/bin/xdg-open"
remove_package > "$notes/log" 2>&1 || fail "the package cannot be removed"
cat "$notes/log"
finish
