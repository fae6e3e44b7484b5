# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./test, which runs under `set -e`: the steps of a run, one after the other or beside one another, each with the
# seconds it took.

# step NAME COMMAND...
step() {
    local name=$1 begin=$SECONDS
    shift
    printf '\n== %s\n' "$name"
    "$@"
    printf '== %s: %s s\n' "$name" $((SECONDS - begin))
}

beside_jobs=() beside_logs=()

# step_beside NAME COMMAND...: starts the step in a group of processes of its own and goes on: a step that waits for packages
# or windows most of its time leaves the cores to the others. What it says is kept for await_steps.
step_beside() {
    local log
    log=$(mktemp)
    echo "== $1: begun beside the other steps"
    set -m
    step "$@" > "$log" 2>&1 < /dev/null &
    set +m
    beside_jobs+=($!)
    beside_logs+=("$log")
}

# Waits for the steps that were started beside, shows what they said in the order of their start; false if one failed.
await_steps() {
    local i status=0
    for i in "${!beside_jobs[@]}"; do
        wait "${beside_jobs[i]}" || status=1
        cat "${beside_logs[i]}"
        rm -f "${beside_logs[i]}"
        unset "beside_jobs[i]" "beside_logs[i]"
    done
    return $status
}

# Ends the steps that still run, and shows what they said, for whoever leaves before they are done.
end_steps() {
    local i
    for i in "${!beside_jobs[@]}"; do
        kill -TERM -- "-${beside_jobs[i]}" 2> /dev/null || true
        wait "${beside_jobs[i]}" 2> /dev/null || true
        echo "== broken off:"
        cat "${beside_logs[i]}"
        rm -f "${beside_logs[i]}"
    done
}
