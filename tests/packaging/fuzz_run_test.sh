#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# A fuzz target that finds something is red, whatever the others say, and what it said is shown.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
targets=$(mktemp -d)
trap 'rm -rf "$targets"' EXIT

# target NAME STATUS: a program in a fuzz target's place, which tells how it was called.
target() {
    printf '#!/bin/sh\necho "%s says $*"\nfor corpus; do :; done\n[ -d "$corpus" ] || exit 9\nexit %s\n' "$1" "$2" \
        > "$targets/$1"
    chmod +x "$targets/$1"
}

said=$(tests/fuzz/run "$targets" 2>&1)
same "status without a target" 2 $?
holds "no target" "$said" "tests/fuzz/run: no target in"

target fuzz_calm 0
target fuzz_still 0
same "two that find nothing" $'fuzz_calm: clean\nfuzz_still: clean' "$(tests/fuzz/run "$targets" 3 2>&1 | sort)"

target fuzz_alarmed 77
said=$(tests/fuzz/run "$targets" 3 2>&1)
same "status of a find" 1 $?
holds "what was found" "$said" "fuzz_alarmed: found something" \
    "fuzz_alarmed says -max_total_time=3 " " -artifact_prefix=$targets/ " "fuzz_calm: clean" "fuzz_still: clean"

target "fuzz_two words" 0
rm "$targets/fuzz_alarmed"
touch "$targets/fuzz_no_program"
said=$(tests/fuzz/run "$targets" 2>&1)
same "status with a blank in a name" 0 $?
holds "a blank in a name" "$said" "fuzz_two words: clean"
finish
