# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by bare_system.sh and fresh_root_test.sh: minimal Debian systems of any release, made as root and kept for the next
# time, and by ./test --all, for the compiler cache that they share.
systems=${TARVOKOL_SYSTEMS:-${XDG_CACHE_HOME:-$HOME/.cache}/tarvokol}
account=engineer
home=/home/$account

# Packages come as this machine's own do: its archives, with the release in the place of its own, its proxies, its keys.
# archives RELEASE: lines "URI SUITE", the release itself first, then what this machine has beside it (updates, security),
# if the archive has that for the release as well.
archives() {
    local release=$1 own uri suite
    own=$(. /etc/os-release && echo "${VERSION_CODENAME:-none}")
    apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 'Created-By: Packages' 'Origin: Debian' 2>/dev/null |
        awk -v own="$own" -v release="$release" 'index($2, own) == 1 { sub(own, release, $2); print }' | sort -u -k 2 |
        grep . || echo "http://deb.debian.org/debian/ $release"
}

# has_suite URI SUITE
has_suite() {
    local found=0 target
    target=$(mktemp -d)
    /usr/lib/apt/apt-helper download-file "${1%/}/dists/$2/InRelease" "$target/InRelease" > /dev/null 2>&1 || found=1
    rm -rf "$target"
    return $found
}

# set_up_packages RELEASE ROOT: where the system fetches its packages, and how.
set_up_packages() {
    local uri suite
    archives "$1" | while read -r uri suite; do
        if [ "$suite" = "$1" ] || has_suite "$uri" "$suite"; then echo "deb $uri $suite main"; fi
    done > "$2/etc/apt/sources.list"
    apt-config dump | grep -E '^Acquire::(https?|ForceIPv|Retries|Check-|Languages)' |
        grep -v 'AutoDetect' > "$2/etc/apt/apt.conf.d/90machine"
    cp -r /etc/apt/trusted.gpg.d/. "$2/etc/apt/trusted.gpg.d/"
    # Nothing here has to outlive a power cut.
    echo force-unsafe-io > "$2/etc/dpkg/dpkg.cfg.d/unsafe-io"
    # No service is started.
    printf '#!/bin/sh\nexit 101\n' > "$2/usr/sbin/policy-rc.d"
    chmod +x "$2/usr/sbin/policy-rc.d"
}

# make_base RELEASE: the minimal system in $systems/RELEASE, if it is not there yet. False where it cannot be made.
make_base() {
    local release=$1 base=$systems/$1 proxy="" lock
    mkdir -p "$systems"
    exec {lock}> "$systems/$release.lock"
    flock "$lock"
    if [ ! -e "$base/complete" ]; then
        rm -rf "$base"
        eval "$(apt-config shell proxy Acquire::http::Proxy)"
        http_proxy=${proxy:-${http_proxy:-}} timeout 1200 debootstrap --variant=minbase --include=sudo "$release" "$base" \
            "$(archives "$release" | awk -v release="$release" '$2 == release { print $1; exit }')" \
            > "$systems/$release.log" 2>&1 || { tail -n 20 "$systems/$release.log" >&2; return 1; }
        set_up_packages "$release" "$base" || return 1
        rm -f "$base"/var/cache/apt/archives/*.deb
        touch "$base/complete"
    fi
    exec {lock}>&-
}

# Whoever compiles may write into it.
make_compiler_cache() {
    mkdir -p "$systems/ccache"
    [ -e "$systems/ccache/ccache.conf" ] || printf 'umask = 000\nmax_size = 5G\n' > "$systems/ccache/ccache.conf"
    chmod 777 "$systems/ccache"
}

# become_root SCRIPT ARGUMENT...: starts the script again as root, with the same systems; nothing if it runs as root.
become_root() { [ "$(id -u)" -eq 0 ] || exec sudo -n env TARVOKOL_SYSTEMS="$systems" "$(realpath "$1")" "${@:2}"; }

# make_system RELEASE: a copy of the minimal system, which the caller removes; sets `root`.
make_system() {
    make_base "$1" || { echo "no minimal system of $1 can be made" >&2; return 1; }
    root=$(mktemp -d "$systems/$1.XXXXXX") || return 1
    chmod 755 "$root"
    cp -a "$systems/$1/." "$root" && cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
}

remove_system() { [ -z "${root:-}" ] || rm -rf --one-file-system "$root"; }
