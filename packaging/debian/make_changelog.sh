#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# make_changelog.sh CHANGELOG.md VERSION: the changelog in Debian's form, on standard output. VERSION is the package's; if
# there are changes that belong to no release yet they come first, under that version and the date of the commit
# (SOURCE_DATE_EPOCH).
set -euo pipefail
changelog=$1 version=$2
maintainer="The TARVO-KOL authors <support@oltek.example>"
LC_ALL=C.UTF-8
export LC_ALL

# entry VERSION DATE: one entry, its lines from standard input; nothing without lines.
entry() {
    local lines
    lines=$(fold -s -w 72 | sed -e 's/ *$//' -e '/^- /!s/^/  /' -e 's/^- /* /' -e 's/^/  /')
    [ -n "$lines" ] || return 0
    printf 'tarvokol (%s) %s; urgency=medium\n\n%s\n\n -- %s  %s\n\n' "$1" "$3" "$lines" "$maintainer" "$(date -u -R -d "$2")"
}

# What stands under the heading "## [NAME]", joined to one line an item.
items() {
    awk -v name="[$1]" '
        /^## / { wanted = $2 == name; next }
        /^\[/ { wanted = 0 }
        !wanted || /^#/ || /^ *$/ { next }
        /^- / { if (item != "") print item; item = $0; next }
        { sub(/^ +/, ""); item = item " " $0 }
        END { if (item != "") print item }' "$changelog"
}

items Unreleased | entry "$version" "@${SOURCE_DATE_EPOCH:-$(date +%s)}" UNRELEASED
sed -n 's/^## \[\([0-9.]*\)\] - \([0-9-]*\)$/\1 \2/p' "$changelog" | while read -r release date; do
    items "$release" | entry "$release" "$date" stable
done
