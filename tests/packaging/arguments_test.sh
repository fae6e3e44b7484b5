#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run, ./test and ./package say to their arguments, before anything is installed or built.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT

# A machine with nothing to install or build with.
for tool in bash dirname realpath ls head cat; do ln -s "$(type -P $tool)" "$machine/$tool"; done
touch "$machine/p.TKL"
mkdir "$machine/folder.TKL"

# said STATUS COMMAND...: what the command says; its status is the one expected, and what it refuses is said to people only.
said() {
    local status=$1 text
    shift
    text=$(env -i PATH="$machine" ${display:+DISPLAY=:nowhere} bash "$@" 2>&1)
    same "status of $*" "$status" $?
    echo "$text"
    [ "$status" -eq 0 ] || display="" same "standard output of $*" "" \
        "$(env -i PATH="$machine" DISPLAY=:nowhere bash "$@" 2> /dev/null)"
}

for display in "" yes; do
    for option in -h --help; do
        holds "./run $option" "$(said 0 ./run $option)" "Usage: ./run [PROJECT.TKL]" "without a display"
        holds "./test $option" "$(said 0 ./test $option)" "Usage: ./test [--all | --packaged | --coverage]"
        holds "./package $option" "$(said 0 ./package $option)" "Usage: ./package"
    done
    holds "unknown option" "$(said 2 ./run --quick)" "./run: unknown option: --quick" "Usage: ./run"
    holds "unknown option" "$(said 2 ./test --quick)" "./test: unknown option: --quick" "Usage: ./test"
    holds "unknown option" "$(said 2 ./package --quick)" "./package: unknown option: --quick" "Usage: ./package"
    same "no file" "./run: there is no file $PWD/nofile.TKL" "$(said 1 ./run nofile.TKL | tail -n 1)"
    same "no file of two words" "./run: there is no file $PWD/north ridge.TKL" "$(said 1 ./run north ridge.TKL | tail -n 1)"
    same "no file after --" "./run: there is no file $PWD/-x.TKL" "$(said 1 ./run -- -x.TKL | tail -n 1)"
    same "a folder" "./run: $machine/folder.TKL is not a file that can be read" "$(said 1 ./run "$machine/folder.TKL" | tail -n 1)"
done
display=""
holds "nothing named without a display" "$(said 0 ./run)" "No display: the command line does the work instead." \
    "Name a project, for instance: ./run examples/Auger_Panel_Two_Holes.TKL"
finish
