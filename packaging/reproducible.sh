#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the packages that ./package has made of these sources again, from a copy at another place, with nothing reused, in
# another time zone and under another umask. True if every byte is equal; else the files that differ are named.
set -euo pipefail
cd "$(dirname "$0")/.."
first=$PWD/build/package
copy=$(mktemp -d "${TMPDIR:-/tmp}/tarvokol-sources.XXXXXX")
trap 'rm -rf "$copy"' EXIT
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
TARVOKOL_COMMIT=${TARVOKOL_COMMIT:-$(git rev-parse --short=12 HEAD)}
export SOURCE_DATE_EPOCH TARVOKOL_COMMIT CCACHE_DISABLE=1 TZ=Pacific/Auckland LC_ALL=C.UTF-8
git ls-files -z | tar -c --null -T - | tar -x -C "$copy"
umask 027
"$copy/package" > "$copy/made"
second=$copy/build/package
differing=""
for package in $({ ls "$first" && ls "$second"; } | grep '\.deb$' | sort -u); do
    cmp "$first/$package" "$second/$package" || differing+=" $package"
done
if [ -z "$differing" ]; then
    echo "The packages are equal:"
    (cd "$first" && sha256sum -- *.deb)
    exit 0
fi
# What differs, by file.
for made in "$first" "$second"; do
    folder=$(mktemp -d -p "$copy")
    for package in $differing; do dpkg-deb -R "$made/$package" "$folder/$package"; done
    (cd "$folder" && find . -type f -exec sha256sum {} + | sort -k 2) > "$folder.sums"
    sums+=("$folder.sums")
done
diff "${sums[@]}" >&2
exit 1
