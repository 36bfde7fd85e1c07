#!/bin/sh
# enter_i386.sh SYSTEM STAGE COMMAND...: in a mount namespace of its own, puts together a root
# directory from the i386 Debian in SYSTEM and the caller's directories named in $visible, and runs
# COMMAND in it.  SYSTEM itself is not written to.
set -eu
system=$1 stage=$2
shift 2

bind() {
  mkdir -p "$stage$2"
  mount --rbind "$1" "$stage$2"
}

mount -t tmpfs tarvo "$stage"
for part in "$system"/*; do
  name=/${part##*/}
  if [ -L "$part" ]; then
    cp -P "$part" "$stage$name"
  else
    case $name in
      /usr | /etc | /var | /opt) bind "$part" "$name" ;;
    esac
  fi
done
bind /proc /proc
bind /dev /dev
printf '%s\n' "$visible" | sort -u | while IFS= read -r directory; do
  [ -z "$directory" ] || bind "$directory" "$directory"
done

export PATH=/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin
# shellcheck disable=SC2016
exec chroot "$stage" /bin/sh -c 'cd "$1" && shift && exec "$@"' sh "$(pwd)" "$@"
