#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Times `tarvokol-cli results --json` over generated project files beside `cat` over the same files.
# Usage: bench/bulk_run.sh [COUNT] [tarvokol-cli]
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-10000}
cli=$(realpath "${2:-build/release/bin/tarvokol-cli}")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

awk -v count="$count" -v folder="$folder" 'BEGIN {
    srand(7)
    for (i = 1; i <= count; i++) {
        file = sprintf("%s/p%05d.TKL", folder, i)
        printf "TARVOKOL_101\r\n 0 \r\nPanel %d\r\n##StartDesc##\r\n", i > file
        printf "Generated panel of the bulk run; north highwall\r\nSecond line of its description\r\n##EndDesc##\r\n" > file
        printf "%.2f\r\n%.1f\r\n%.2f\r\n%.2f\r\n%.2f\r\n", 3 + 9 * rand(), 50 + 300 * rand(), 9 + 3 * rand(), \
            3 + 8 * rand(), 15 + 30 * rand() > file
        printf " %d \r\n90\r\n1000000\r\n900\r\n162\r\n21\r\n1.6\r\n2\r\n0\r\n", 2 + int(19 * rand()) > file
        close(file)
    }
}'
cd "$folder"
ls > ../list.$$ && mv ../list.$$ list

seconds() {
    local start end
    start=$(date +%s.%N)
    "$@"
    end=$(date +%s.%N)
    echo "$end $start" | awk '{ print $1 - $2 }'
}
cat_all() { grep -v list list | xargs cat > /dev/null; }
run_all() { grep -v list list | "$cli" results --json --quiet - > results.json; }

cat_all
run_all
best_cat=9999
best_run=9999
for _ in 1 2 3 4 5; do
    best_cat=$(echo "$(seconds cat_all) $best_cat" | awk '{ print ($1 < $2) ? $1 : $2 }')
    best_run=$(echo "$(seconds run_all) $best_run" | awk '{ print ($1 < $2) ? $1 : $2 }')
done
echo "$count files: cat $best_cat s, tarvokol-cli results --json $best_run s," \
    "$(echo "$best_run $best_cat" | awk '{ printf "%.2f", $1 / $2 }') times;" \
    "$(wc -l < results.json) objects, $(grep -c '"ok":true' results.json) ok"
