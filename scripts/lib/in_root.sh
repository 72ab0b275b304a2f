#!/usr/bin/env bash
# in_root.sh ROOT ARCHIVES COMMAND...
# Runs a command in a root of its own, in the clone there. Called by scripts/test-bare in a mount
# namespace: what is mounted here goes with the namespace, however the command ends.
set -euo pipefail
root=$1 archives=$2
shift 2

mount -t proc proc "$root/proc"
mount -t tmpfs -o mode=755 dev "$root/dev"
for device in null zero full random urandom tty; do
    touch "$root/dev/$device"
    mount --bind "/dev/$device" "$root/dev/$device"
done
ln -s /proc/self/fd "$root/dev/fd"
mkdir "$root/dev/shm"
mount -t tmpfs -o mode=1777 shm "$root/dev/shm"
# Terminals of its own, for what is typed in a test.
mkdir "$root/dev/pts"
mount -t devpts -o newinstance,ptmxmode=0666 devpts "$root/dev/pts"
ln -s pts/ptmx "$root/dev/ptmx"
# Each root unpacks the packages; they come over the wire once.
mount --bind "$archives" "$root/var/cache/apt/archives"
cp -L /etc/resolv.conf /etc/hosts "$root/etc/" 2>/dev/null || true

# Nothing of this machine's environment but the way to the archive.
environment=(HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM="${TERM:-dumb}")
for name in http_proxy https_proxy no_proxy; do
    [[ -z ${!name:-} ]] || environment+=("$name=${!name}")
done
# shellcheck disable=SC2016 # the inner shell's
exec chroot "$root" env -i "${environment[@]}" bash -c 'cd "$0" && exec "$@"' "$(<"$root/.clone")" "$@"
