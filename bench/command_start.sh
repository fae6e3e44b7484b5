#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Start and end of the command line beside those of other programs that are there, from bash, which adds the same to each:
# `--version`, `--help` and one small result of ours, `--version` of the others. The programs take turns.
# Usage: bench/command_start.sh [TURNS] [BIN_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
turns=${1:-40}
cli=$(realpath "${2:-build/release/bin}")/tarvokol-cli
project=examples/Thick_Seam_Pit.TKL
times=$(mktemp -d)
trap 'rm -rf "$times"' EXIT

# timed NAME COMMAND...: notes how long the command takes, in microseconds.
timed() {
    local name=$1 begin end
    shift
    begin=${EPOCHREALTIME/[.,]/}
    "$@" > /dev/null 2>&1 < /dev/null || { echo "$name fails" >&2; exit 1; }
    end=${EPOCHREALTIME/[.,]/}
    echo $((end - begin)) >> "$times/$name"
}

for ((turn = 0; turn < turns; turn++)); do
    timed "tarvokol-cli --version" "$cli" --version
    timed "tarvokol-cli --help" "$cli" --help
    timed "tarvokol-cli results" "$cli" results "$project"
    timed "tarvokol-cli plan --format svg" "$cli" plan --format svg "$project"
    for program in sqlite3 jq true; do
        path=$(type -P $program) || continue
        timed "$program --version" "$path" --version
    done
done

echo "Median of $turns turns, load $(cut -d ' ' -f 1 /proc/loadavg)"
for name in "$times"/*; do
    sort -n "$name" | awk -v name="$(basename "$name")" '{ a[NR] = $1 }
        END { printf "%-32s %6.1f ms\n", name, (a[int((NR + 1) / 2)] + a[int(NR / 2) + 1]) / 2000 }'
done
