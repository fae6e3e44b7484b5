# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the tests of the package: what fails is reported and counted, and the test goes on.
failures=0

fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
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
    [ "$failures" -eq 0 ] || exit 1
}
