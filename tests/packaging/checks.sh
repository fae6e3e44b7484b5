# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the tests of the package: what fails is reported and noted, and the test goes on. The note is a file that has no
# name any more, so that what fails in a subshell counts as well.
notes_file=$(mktemp)
exec {noted_failures}<> "$notes_file"
rm -f "$notes_file"

fail() {
    echo "FAILED: $*" >&2
    echo "$*" >&"$noted_failures"
}

# clean LABEL COMMAND...: the command succeeds and says nothing.
clean() {
    local label=$1 said
    shift
    if ! said=$("$@" 2>&1) || [ -n "$said" ]; then
        fail "$label"
        printf '%s\n' "$said" >&2
    fi
}

# same LABEL EXPECTED FOUND
same() {
    [ "$2" = "$3" ] || fail "$1: expected \"$2\", found \"$3\""
}

# holds LABEL TEXT PART...: every part stands in the text.
holds() {
    local label=$1 text=$2 part
    shift 2
    for part in "$@"; do
        [[ $text == *"$part"* ]] || fail "$label: no \"$part\""
    done
}

finish() {
    [ ! -s "/dev/fd/$noted_failures" ] || exit 1
}
