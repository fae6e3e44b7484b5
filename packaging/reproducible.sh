#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the package that ./package has made of these sources again, from a copy at another place, with nothing reused, in
# another time zone and under another umask. True if every byte is equal; else the files that differ are named.
set -euo pipefail
cd "$(dirname "$0")/.."
package=$(echo "$PWD"/build/package/tarvokol_*.deb)
copy=$(mktemp -d "${TMPDIR:-/tmp}/tarvokol-sources.XXXXXX")
trap 'rm -rf "$copy"' EXIT
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
TARVOKOL_COMMIT=${TARVOKOL_COMMIT:-$(git rev-parse --short=12 HEAD)}
export SOURCE_DATE_EPOCH TARVOKOL_COMMIT CCACHE_DISABLE=1 TZ=Pacific/Auckland LC_ALL=C.UTF-8
git ls-files -z | tar -c --null -T - | tar -x -C "$copy"
umask 027
second=$("$copy/package")
if cmp "$package" "$second"; then
    echo "The packages are equal: $(sha256sum < "$package" | cut -d ' ' -f 1)"
    exit 0
fi
# What differs, by file.
for made in "$package" "$second"; do
    folder=$(mktemp -d -p "$copy")
    dpkg-deb -R "$made" "$folder"
    (cd "$folder" && find . -type f -exec sha256sum {} + | sort -k 2) > "$folder.sums"
    sums+=("$folder.sums")
done
diff "${sums[@]}" >&2
exit 1
