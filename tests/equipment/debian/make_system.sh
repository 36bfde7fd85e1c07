#!/bin/sh
# make_system.sh ARCHITECTURE DIRECTORY [PACKAGE...]: makes a Debian of this machine's release in
# DIRECTORY, with nothing but what every Debian has and the PACKAGEs.  Needs root and about a minute.
set -eu

if [ "${1:-}" != --in-namespace ]; then
  # Mounts and processes end with this script, and this script with its caller.
  exec setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child --mount-proc \
    "$0" --in-namespace "$@"
fi
architecture=$2 directory=$3
shift 3

. /etc/os-release
# The mirror that this machine uses.
mirror=$(apt-get indextargets --format "\$(REPO_URI)" 'Created-By: Packages' \
  "Codename: $VERSION_CODENAME" 'Origin: Debian' 2>/dev/null | head -n 1)
# shellcheck disable=SC2086
debootstrap --arch="$architecture" --variant=minbase "$VERSION_CODENAME" "$directory" $mirror

cp -L /etc/resolv.conf "$directory/etc/resolv.conf" || true
mount --rbind /proc "$directory/proc"
mount --rbind /dev "$directory/dev"
inside() { chroot "$directory" env DEBIAN_FRONTEND=noninteractive LC_ALL=C "$@"; }
if [ $# -gt 0 ]; then
  inside apt-get -y -qq update
  inside apt-get -y -qq -o APT::Install-Recommends=false install "$@"
fi
inside apt-get clean
rm -rf "$directory"/var/lib/apt/lists/*
