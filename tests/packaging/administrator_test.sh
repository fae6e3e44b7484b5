#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# A user with neither root nor sudo is told what to ask an administrator for; one whose sudo asks for no password is not
# asked for one.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT

# A machine on which nothing is installed, the user is no root, and sudo, if there is one, refuses.
for tool in bash env mktemp cat rm dirname printf grep realpath; do ln -s "$(type -P $tool)" "$machine/$tool"; done
printf '#!/bin/sh\nexit 1\n' > "$machine/dpkg-query"
printf '#!/bin/sh\necho 1000\n' > "$machine/id"
printf '#!/bin/sh\ntouch %s/apt-get-ran\n' "$machine" > "$machine/apt-get"
chmod +x "$machine/dpkg-query" "$machine/id" "$machine/apt-get"

# told COMMAND [ARGUMENT]: what the command says, and its status.
told() {
    env -i PATH="$machine" HOME=/nonexistent DISPLAY=:nowhere bash "$@" 2>&1
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

# Member of the group sudo, with a rule of his own that asks for no password: `sudo -v` asks for one all the same, as not
# every rule of his does without.
cat > "$machine/sudo" <<'SUDO'
#!/bin/sh
[ "$1" != -v ] || exit 1
[ "$1" != -n ] || shift
exec "$@"
SUDO
for tool in true touch; do ln -s "$(type -P $tool)" "$machine/$tool"; done
for command in "run examples/Thick_Seam_Pit.TKL" test package; do
    rm -f "$machine/apt-get-ran"
    holds "./$command, sudo without a password" "$(told $command)" "Debian packages that are missing: g++ cmake ninja-build"
    [ -e "$machine/apt-get-ran" ] || fail "./$command does not install"
done

# Package lists that cannot be read end the command with what the installer said, before anything is installed or built.
printf '#!/bin/sh\n[ "$1" = update ] || touch %s/apt-get-ran\necho "no network"\n[ "$1" != update ]\n' "$machine" > "$machine/apt-get"
for command in "run examples/Thick_Seam_Pit.TKL" test package; do
    rm -f "$machine/apt-get-ran"
    # shellcheck disable=SC2086
    said=$(told $command)$'\n'
    holds "./$command, failing lists" "$said" "no network" $'\nstatus 1\n'
    [ ! -e "$machine/apt-get-ran" ] || fail "./$command installs after lists that cannot be read"
done
finish
