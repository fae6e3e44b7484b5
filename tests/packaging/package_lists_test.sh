#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The packages that the scripts install are those that INSTALL names, and those of both releases.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh

# packages RELEASE LIST: the names of a list as that release has them, one per line.
packages() {
    DEBIAN_RELEASE=$1 bash -c '. packaging/debian_packages.sh; printf "%s\n" ${!1}' bash "$2" | sort
}

# told WORD: the names in the indented lines of INSTALL that WORD stands in.
told() {
    awk -v word="$1" '
        /^    / { block = block " " $0; next }
        { if (index(block " ", " " word " ")) print block; block = "" }' INSTALL.md | xargs -n 1 | sort
}

test_install_names_what_is_installed() {
    same "to build" "$(packages bookworm BUILD_PACKAGES)" "$(told qt6-base-dev)"
    same "to build on Debian 13" "$(packages trixie BUILD_PACKAGES)" "$(told qt6-base-dev)"
    same "to run on Debian 13" "$(packages trixie RUN_PACKAGES)" "$(told fonts-liberation)"
    same "to run on Debian 12" "$(packages bookworm RUN_PACKAGES)" "$(told fonts-liberation | grep -vx qt6-svg-plugins)"
}

# A number in a name (clang-14, llvm-14) is that of one release.
test_no_name_carries_a_version() {
    local list
    for list in BUILD_PACKAGES RUN_PACKAGES PACKAGE_PACKAGES TEST_PACKAGES COVERAGE_PACKAGES ALL_TEST_PACKAGES; do
        same "versions in $list" "" "$(packages trixie $list | grep -E -- '-[0-9.]+(-|$)')"
    done
}

# Without those that every Debian builds with, the compiler cache, git, which tells the commit, and what the documents are
# made with that is asked for when the program runs, too.
test_the_source_package_asks_for_the_same() {
    same "to build packages" \
        "$({ packages bookworm BUILD_PACKAGES; packages bookworm PACKAGE_PACKAGES; } | grep -vxE 'g\+\+|ccache|build-essential|debhelper|dpkg-dev|git' | sort)" \
        "$(sed -n '/^Build-Depends:/,/^[^ ]/ s/^ \([^ ,]*\).*/\1/p' debian/control | grep -vxE 'debhelper-compat|fonts-liberation|libqt6sql6-sqlite|qt6-svg-plugins' | sort)"
}

test_a_release_that_is_not_known_is_a_later_one() {
    same "to run on Debian 14" "$(packages trixie RUN_PACKAGES)" "$(packages forky RUN_PACKAGES)"
}

for name in $(declare -F | sed -n 's/^declare -f \(test_.*\)/\1/p'); do $name; done
finish
