#!/bin/sh
# make_i386.sh DIRECTORY: makes a small i386 Debian with Wine in DIRECTORY.  Needs root, about a
# minute and 1 GB.  (32-bit packages beside the 64-bit ones would do as well, but then the two
# architectures' versions of every library have to be equal, which mirrors do not always offer.)
set -eu

if [ "${1:-}" != --in-namespace ]; then
  # Mounts made on the way end with this script, whatever happens to it.
  exec unshare --mount "$0" --in-namespace "$1"
fi
directory=$2

. /etc/os-release
# The mirror that this machine uses.
mirror=$(apt-get indextargets --format "\$(REPO_URI)" 'Created-By: Packages' \
  "Codename: $VERSION_CODENAME" 2>/dev/null | head -n 1)
# shellcheck disable=SC2086
debootstrap --arch=i386 --variant=minbase "$VERSION_CODENAME" "$directory" $mirror

cp -L /etc/resolv.conf "$directory/etc/resolv.conf" || true
mount --rbind /proc "$directory/proc"
mount --rbind /dev "$directory/dev"
inside() { chroot "$directory" env DEBIAN_FRONTEND=noninteractive LC_ALL=C "$@"; }
inside apt-get -y -qq update
inside apt-get -y -qq -o APT::Install-Recommends=false install \
  fonts-liberation fonts-wine libcups2 wine wine32
inside apt-get clean
rm -rf "$directory"/var/lib/apt/lists/*
