#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# enter_system.sh ROOT ARCHIVES CCACHE COMMAND...: runs the command, which enters ROOT itself, with what a running system
# has: processes, devices, shared memory. ARCHIVES keeps the packages that were fetched, CCACHE what was compiled. To be
# started in mount and process name spaces of its own, so that nothing of it is left: unshare --mount --pid --fork.
set -euo pipefail
root=$1 archives=$2 ccache=$3
shift 3
mount -t proc proc "$root/proc"
mount -t sysfs -o ro sysfs "$root/sys"
mount -t tmpfs -o mode=755 devices "$root/dev"
for device in null zero full random urandom tty; do
    touch "$root/dev/$device"
    mount --bind "/dev/$device" "$root/dev/$device"
done
mkdir "$root/dev/pts" "$root/dev/shm"
mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 terminals "$root/dev/pts"
mount -t tmpfs -o mode=1777 memory "$root/dev/shm"
ln -s pts/ptmx "$root/dev/ptmx"
ln -s /proc/self/fd "$root/dev/fd"
mount --bind "$archives" "$root/var/cache/apt/archives"
mount --bind "$ccache" "$root/home/engineer/.ccache"
exec "$@"
