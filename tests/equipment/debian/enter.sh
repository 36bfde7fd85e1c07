#!/bin/sh
# enter.sh DIRECTORY ARCHIVES COMMAND...: runs COMMAND as root of the Debian in DIRECTORY, with a new
# user's environment and the machine's network.  Downloaded packages are kept in ARCHIVES for the
# next time.  Needs root.  Ends, with all that it started, when its caller does.
set -eu
if [ "$1" != --in-namespace ]; then
  exec setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child --mount-proc \
    "$0" --in-namespace "$@"
fi
directory=$2 archives=$3
shift 3

# Today's network may be another than that of the day the system was made.
cp -L /etc/resolv.conf "$directory/etc/resolv.conf" || true
mkdir -p "$archives/partial"
mount --bind "$archives" "$directory/var/cache/apt/archives"
mount --rbind /proc "$directory/proc"
mount --rbind /dev "$directory/dev"
exec chroot "$directory" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb \
  DEBIAN_FRONTEND=noninteractive ${http_proxy:+"http_proxy=$http_proxy"} \
  ${https_proxy:+"https_proxy=$https_proxy"} "$@"
