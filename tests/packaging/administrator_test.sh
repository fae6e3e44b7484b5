#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# A user with neither root nor sudo is told what to ask an administrator for.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT

# A machine on which nothing is installed, the user is no root, and sudo, if there is one, refuses.
for tool in bash env mktemp cat rm dirname printf grep; do ln -s "$(command -v $tool)" "$machine/$tool"; done
printf '#!/bin/sh\nexit 1\n' > "$machine/dpkg-query"
printf '#!/bin/sh\necho 1000\n' > "$machine/id"
printf '#!/bin/sh\ntouch %s/apt-get-ran\n' "$machine" > "$machine/apt-get"
chmod +x "$machine/dpkg-query" "$machine/id" "$machine/apt-get"

# told COMMAND: what the command says, and its status.
told() {
    env -i PATH="$machine" HOME=/nonexistent bash "$1" 2>&1
    echo "status $?"
}

expect_instructions() {
    local said
    said=$(told "./$1")
    holds "./$1, $2" "$said" "installing them takes root or sudo" "g++ cmake ninja-build" \
        "apt-get update && apt-get install --no-install-recommends g++" "status 1"
    [ ! -e "$machine/apt-get-ran" ] || fail "./$1 starts apt-get all the same"
}

for command in run test package; do expect_instructions $command "no sudo"; done
printf '#!/bin/sh\nexit 1\n' > "$machine/sudo"
chmod +x "$machine/sudo"
for command in run test package; do expect_instructions $command "sudo refuses"; done
finish
