#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# bare_system.sh [--keep] [--take FILES FOLDER] RELEASE COMMAND...: runs the command in a minimal Debian system (bookworm,
# trixie) on which nothing was installed by hand, in a fresh clone of the last commit, as an ordinary account that may use
# sudo without a password and has no folder of documents. Returns the command's status and tells the seconds.
#   --take   copies FILES of the clone (a pattern) into FOLDER when the command has succeeded
#   --keep   leaves the system where it is, and tells where
# Needs root or sudo, and the Debian archive. The minimal system, the packages that were fetched and what was compiled are
# kept in $TARVOKOL_SYSTEMS (~/.cache/tarvokol).
set -uo pipefail
usage() { sed -n 's/^# \(bare_system.sh .*\)/usage: \1/p' "$0" >&2; exit 2; }
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/packaging/minimal_system.sh"
become_root "$0" "$@"

keep="" files="" folder=""
while [[ ${1:-} == --* ]]; do
    case $1 in
        --keep) keep=yes; shift ;;
        --take) [ $# -ge 3 ] || usage; files=$2 folder=$(realpath -m "$3"); shift 3 ;;
        *) usage ;;
    esac
done
[ $# -ge 2 ] || usage
release=$1
shift

clean_up() { [ -n "$keep" ] || remove_system; }

# The account, in the group sudo, whose rule asks for a password, and with a rule of its own that does not.
make_account() {
    # The sources may be another user's than root's.
    printf '[safe]\n\tdirectory = *\n' > "$root/tmp/gitconfig"
    chroot "$root" useradd --create-home --uid 1000 --groups sudo --shell /bin/bash $account &&
        echo "$account ALL=(ALL:ALL) NOPASSWD: ALL" > "$root/etc/sudoers.d/$account" &&
        mkdir -p "$root$home/.ccache" && chown -R 1000:1000 "$root$home" && make_clone
}

# Where the sources are on this machine: a precompiled header holds its own path, and only one of the same path lets the
# compiler cache find here what was compiled there.
make_clone() {
    local folder=$source
    GIT_CONFIG_GLOBAL="$root/tmp/gitconfig" git clone --quiet --no-hardlinks "$source" "$root$source" &&
        chown -R 1000:1000 "$root$source" || return
    while [ "$folder" != / ]; do
        chmod a+rx "$root$folder"
        folder=$(dirname "$folder")
    done
}

in_system() {
    unshare --mount --pid --fork --kill-child "$source/tests/packaging/enter_system.sh" \
        "$root" "$systems/$release.archives" "$systems/ccache" "$@"
}

as_account() {
    in_system chroot --userspec=$account:$account --groups=$account,sudo "$root" env -i HOME=$home USER=$account \
        LOGNAME=$account SHELL=/bin/bash PATH=/usr/local/bin:/usr/bin:/bin bash -c 'cd "$0" && exec "$@"' "$source" "$@"
}

begin=$SECONDS
trap clean_up EXIT
make_system "$release" && make_account && make_compiler_cache && mkdir -p "$systems/$release.archives" || { echo "bare_system: no bare $release" >&2; exit 125; }
made=$((SECONDS - begin))
as_account "$@"
status=$?
in_system chroot "$root" apt-get -qq autoclean > /dev/null 2>&1
if [ $status -eq 0 ] && [ -n "$files" ]; then
    mkdir -p "$folder"
    # shellcheck disable=SC2086
    cp -- "$root$source/"$files "$folder/" || status=1
fi
echo "bare_system: $release: $*: status $status, $((SECONDS - begin)) s, $made of them until the system stood"
[ -z "$keep" ] || echo "bare_system: kept in $root"
exit $status
