# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run, ./test and ./package: long steps tell how far they are.

# progress LABEL COMMAND...: runs the command with its output kept aside. Shows how far it is, by the "[done/all]" that a
# build begins its lines with or by the percentages of the package installer; on a terminal in one line, else in steps of
# 10 %. The output is shown if the command fails; its status is passed on.
progress() {
    local label=$1 log line percent shown=0 status=0 source
    shift
    log=$(mktemp)
    echo "$label ..."
    exec {source}< <("$@" 2>&1)
    local command=$!
    while IFS= read -r -u "$source" line; do
        printf '%s\n' "$line" >> "$log"
        if [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
            percent=$((100 * BASH_REMATCH[1] / BASH_REMATCH[2]))
        elif [[ $line =~ ^(dl|pm)status:[^:]*:([0-9]+) ]]; then
            percent=${BASH_REMATCH[2]}
        else
            continue
        fi
        show_percent "$label" "$percent" "$shown" && shown=$percent
    done
    exec {source}<&-
    wait "$command" || status=$?
    [ ! -t 1 ] || printf '\r\033[K'
    [ "$status" -eq 0 ] || cat "$log" >&2
    rm -f "$log"
    return "$status"
}

# show_percent LABEL PERCENT SHOWN: false where there is nothing new to show.
show_percent() {
    if [ -t 1 ]; then
        printf '\r%s: %d %%' "$1" "$2"
    elif [ "$2" -lt "$3" ] || [ $(($2 / 10)) -gt $(($3 / 10)) ]; then
        printf '%s: %d %%\n' "$1" "$2"
    else
        return 1
    fi
}
