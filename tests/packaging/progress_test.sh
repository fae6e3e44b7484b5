#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Long steps tell how far they are, keep quiet about the rest and pass on what fails.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
. packaging/progress.sh

build() {
    printf '[1/4] one\n[2/4] two\nwarning: odd\n[4/4] four\n'
    return "$1"
}
install() { printf 'dlstatus:1:5.0:Reading\npmstatus:fish:55.5:Unpacking\npmstatus:fish:57.5:Unpacking\n'; }

same "a build" $'Building ...\nBuilding: 25 %\nBuilding: 50 %\nBuilding: 100 %' "$(progress Building build 0 2>&1)"
same "an installation" $'Installing ...\nInstalling: 55 %' "$(progress Installing install 2>&1)"
said=$(progress Building build 3 2>&1)
same "status of what fails" 3 $?
holds "what fails" "$said" "warning: odd"
same "nothing known of a command" "Working ..." "$(progress Working true)"
finish
