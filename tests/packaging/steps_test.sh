#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# A step that fails ends the run with its status and ends what runs beside it; one that fails beside the others is red, too.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# said LINE...: what a run of these lines says.
said() {
    printf '%s\n' 'set -euo pipefail' '. tests/steps.sh' 'trap end_steps EXIT' "$@" > "$scratch/run"
    TMPDIR=$scratch bash "$scratch/run" 2>&1
}
without_times() { sed -E 's/: [0-9]+ s$/: N s/'; }

same "one after the other" $'== One\none\n== One: N s\n\n== Two\ntwo\n== Two: N s' \
    "$(said 'step One echo one' 'step Two echo two' | without_times | sed 1d)"

found=$(said 'step Good true' 'step Bad sh -c "echo what; exit 7"' 'step Never echo never')
same "status of a step that fails" 7 $?
holds "a step that fails" "$found" "== Bad" "what"
[[ $found != *never* ]] || fail "the run goes on after a step that failed"

found=$(said 'step_beside Slow sh -c "sleep 0.2; echo slow"' 'step Quick echo quick' await_steps 'echo all done')
same "status beside" 0 $?
holds "a step beside" "$found" $'== Slow: begun beside the other steps\n\n== Quick\nquick' $'== Slow\nslow\n== Slow: ' "all done"

found=$(said 'step_beside Bad sh -c "echo what; exit 7"' 'step_beside Good echo good' await_steps 'echo all done')
same "status of one that fails beside" 1 $?
holds "one that fails beside" "$found" what good
[[ $found != *"all done"* ]] || fail "the run goes on after a step that failed beside it"

# A process that would run for an hour ends with the run.
found=$(said "step_beside Long sh -c 'sleep 3600 & echo \$! > $scratch/sleeper; wait'" \
    "until [ -s $scratch/sleeper ]; do sleep 0.05; done" 'step Bad false')
same "status of a run that breaks off" 1 $?
holds "a run that breaks off" "$found" "== broken off:" "== Long"
# What has ended and is not yet taken notice of has no command line.
same "what ran beside the others" "" "$(tr -d '\0' 2> /dev/null < "/proc/$(cat "$scratch/sleeper")/cmdline")"
same "files left behind" "run sleeper" "$(cd "$scratch" && echo *)"
finish
