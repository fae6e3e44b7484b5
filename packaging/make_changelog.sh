#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# make_changelog.sh [CHANGELOG.md]: the changelog in Debian's form, on standard output. Changes that belong to no release yet
# come first, under a version that is later than the last release's: 1.3.02+20260131.1530 of the commit's date, which
# SOURCE_DATE_EPOCH tells where the sources lie outside of their repository.
set -euo pipefail
changelog=${1:-$(dirname "$0")/../CHANGELOG.md}
maintainer="The TARVO-KOL authors <support@oltek.example>"
LC_ALL=C.UTF-8
export LC_ALL
date=${SOURCE_DATE_EPOCH:-$(git -C "$(dirname "$changelog")" log -1 --format=%ct 2>/dev/null || stat -c %Y "$changelog")}

# Lines "VERSION DATE", the last release first.
releases() { sed -n 's/^## \[\([0-9.]*\)\] - \([0-9-]*\)$/\1 \2/p' "$changelog"; }

# entry VERSION DATE DISTRIBUTION: one entry, its lines from standard input; nothing without lines.
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

last=$(releases | sed -n '1s/ .*//p')
items Unreleased | entry "$last+$(date -u -d "@$date" +%Y%m%d.%H%M)" "@$date" UNRELEASED
releases | while read -r release day; do
    items "$release" | entry "$release" "$day" stable
done
