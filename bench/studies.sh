#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The study commands beside programs that an engineer would write for the same work, in one run on one machine:
#   bench/studies.sh [BUILD_FOLDER]
# Peers: NumPy with pandas, Octave and OpenTURNS; a peer that is not installed is left out, and the packages are named. Every program's figures are compared with ours before anything is timed. Figures are
# wall seconds, the median of RUNS turns (default 5) taken in rounds, so that a slow moment of the machine meets all.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/debian_packages.sh
build=$(realpath "${1:-build/release}")
cli=$build/bin/tarvokol-cli
runs=${RUNS:-5}
side=${SIDE:-1000}
samples=${SAMPLES:-1000000}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
project=examples/Contour_Bench_Shallow.TKL
peers=$(realpath bench/studies_peers)

sweep_ours() {
    "$cli" sweep --quiet "$project" --vary "WebThickness=2:12/$side" --vary "DepthCover=50:900/$side" --force -o "$folder/ours.csv"
}
sweep_numpy() { python3 "$peers/sweep_numpy.py" "$side" "$folder/numpy.csv"; }
sweep_octave() { octave --quiet --no-gui "$peers/sweep_octave.m" "$side" "$folder/octave.csv"; }
sweep_cat() { cat "$folder/ours.csv" >"$folder/cat.csv"; }
sweep_calculation() { "$build/bench/study_loop" ours "$side"; }
sweep_loop() { "$build/bench/study_loop" loop "$side"; }
risk_ours() {
    "$cli" risk --quiet --json "$project" --random CoalStrength=lognormal:100%:15% --random DepthCover=triangular:90%:100%:120% \
        --random Height=normal:100%:5% --samples "$samples" >"$folder/risk.json"
}
# 2500 cells with 10,000 samples each, and as many panels of a grid without output, on one thread both.
cells_ours() {
    "$cli" sweep --quiet --threads 1 "$project" --vary WebThickness=2:12/50 --vary DepthCover=50:900/50 \
        --random CoalStrength=lognormal:100%:15% --samples 10000 --force -o "$folder/cells.csv"
}
cells_grid() { "$build/bench/study_loop" strengths 5000; }
cells_depths() { "$build/bench/study_loop" ours 5000; }
# Five fields; a design of the web beside one risk study of as many samples.
few=$((samples / 10))
five=(--random CoalStrength=lognormal:100%:15% --random DepthCover=triangular:90%:100%:120% --random Height=normal:100%:5%
    --random UnitWeight=uniform:155:169 --random WebThickness=normal:3.25:0.1)
sobol_ours() { "$cli" risk --quiet --json --sobol "$project" "${five[@]}" --samples "$few" >"$folder/sobol.json"; }
sobol_without() { "$cli" risk --quiet --json "$project" "${five[@]}" --samples "$few" >"$folder/without.json"; }
sobol_openturns() { /usr/bin/python3 "$peers/sobol_openturns.py" "$few" >"$folder/openturns.txt"; }
sobol_alone() { /usr/bin/python3 "$peers/sobol_openturns.py" "$few" alone >"$folder/openturns.txt"; }
design_ours() {
    "$cli" design --quiet --json "$project" --random CoalStrength=lognormal:100%:15% --samples "$few" --find WebThickness \
        --until "WebsOnly<1.6" --probability 5% >"$folder/design.json"
}
design_risk() { "$cli" risk --quiet --json "$project" --random CoalStrength=lognormal:100%:15% --samples "$few" >"$folder/one.json"; }
risk_numpy() { python3 "$peers/risk_numpy.py" "$samples" >"$folder/risk_numpy.json"; }

have() { python3 -c "import $1" 2>/dev/null; }
sweeps="ours cat"
risks="ours"
if have numpy && have pandas; then
    sweeps+=" numpy"
    risks+=" numpy"
else
    echo "left out: NumPy"
fi
if command -v octave >/dev/null; then sweeps+=" octave"; else echo "left out: Octave"; fi
missing=$(missing_packages $PEER_PACKAGES)
[ -z "$missing" ] || echo "packages of the peers that are not installed: $missing"

sweep_ours
for peer in numpy octave; do
    [[ " $sweeps " == *" $peer "* ]] || continue
    "sweep_$peer"
    python3 "$peers/compare_rows.py" "$folder/ours.csv" "$folder/$peer.csv"
done
risk_ours
if [[ " $risks " == *" numpy "* ]]; then
    risk_numpy
    python3 "$peers/compare_risks.py" "$folder/risk.json" "$folder/risk_numpy.json"
fi

# seconds WORK: wall seconds of one turn.
seconds() {
    local start=$EPOCHREALTIME
    "$@" >/dev/null
    awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%.4f\n", b - a }'
}
median() { sort -n "$1" | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

cells=ours
sobols="ours without"
if /usr/bin/python3 -c "import openturns" 2>/dev/null; then sobols+=" openturns alone"; else echo "left out: OpenTURNS"; fi
[ ! -x "$build/bench/study_loop" ] || { sweeps+=" calculation loop"; cells+=" grid depths"; }
for ((turn = 0; turn < runs; ++turn)); do
    for what in $sweeps; do seconds "sweep_$what" >>"$folder/sweep_$what.times"; done
    for what in $cells; do seconds "cells_$what" >>"$folder/cells_$what.times"; done
    for what in $risks; do seconds "risk_$what" >>"$folder/risk_$what.times"; done
    for what in $sobols; do seconds "sobol_$what" >>"$folder/sobol_$what.times"; done
    for what in ours risk; do seconds "design_$what" >>"$folder/design_$what.times"; done
done

report() {
    local what=$1 title=$2 time base
    [ -s "$folder/$what.times" ] || return 0
    time=$(median "$folder/$what.times")
    base=$(median "$folder/$3.times")
    awk -v t="$title" -v s="$time" -v b="$base" 'BEGIN { printf "%-44s %8.3f s   %6.2f times\n", t, s, s / b }'
}
echo "load: $(cut -d' ' -f1-3 /proc/loadavg), processors: $(nproc)"
report sweep_ours "sweep of $side x $side panels to CSV" sweep_ours
report sweep_cat "  cat of the same rows" sweep_ours
report sweep_numpy "  NumPy and pandas" sweep_ours
report sweep_octave "  Octave" sweep_ours
report sweep_calculation "calculation alone, one thread" sweep_loop
report sweep_loop "  hand-written loop over the formulas" sweep_loop
report cells_ours "probabilities of 50 x 50 cells, one thread" cells_grid
report cells_grid "  25 million panels of a grid of strengths" cells_grid
report cells_depths "  25 million panels of a grid of depths" cells_grid
report risk_ours "risk with $samples samples" risk_ours
report risk_numpy "  NumPy" risk_ours
report sobol_ours "risk --sobol, $few base samples of 5 fields" sobol_ours
report sobol_without "  without --sobol" sobol_ours
report sobol_openturns "  OpenTURNS with NumPy, its own intervals" sobol_ours
report sobol_alone "  the same without intervals" sobol_ours
report design_ours "design of a web with $few samples" design_risk
report design_risk "  one risk study of as many" design_risk
