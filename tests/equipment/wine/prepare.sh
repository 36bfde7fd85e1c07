#!/bin/sh
# prepare.sh 64|32 [--tests]: makes the template of the Wine prefixes in which tests run, once; later
# calls find it and end at once.  Exit code 77 when this machine cannot run such programs, with a
# reason; 125 when Wine is there but does not work.  run.sh calls it with --tests.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
BITS=${1:-}
case $BITS in
  64 | 32) ;;
  *) echo "usage: prepare.sh 64|32 [--tests]" >&2; exit 2 ;;
esac
patient=${2:-}
# shellcheck source=tests/equipment/wine/common.sh
. "$here/common.sh"

log=$cache/wine$BITS.log
# When making the i386 system failed; a test run does not try again for an hour.
failed=$cache/i386.failed

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo -n "$@"; fi
}

# Under a name of its own until it is complete; what an interrupted run left is removed.
make_system() {
  [ -z "$patient" ] || [ -z "$(find "$failed" -mmin -60 2>/dev/null)" ] ||
    unavailable "an i386 system could not be made at $(cat "$failed"); see $log"
  rm -f "$failed"
  command -v debootstrap >/dev/null || unavailable "debootstrap is not installed"
  as_root true 2>/dev/null || unavailable "making an i386 system needs root"
  echo "wine, 32 bit: making a small i386 system (a minute, once)" >&2
  as_root rm -rf "$cache"/i386-*.new
  # A list of package names: splitting is meant.
  # shellcheck disable=SC2086
  as_root "$make_system" i386 "$system.new" $i386_packages >"$log" 2>&1 ||
    { date >"$failed"; unavailable "could not make an i386 system; see $log"; }
  as_root mv "$system.new" "$system"
}

make_template() {
  echo "wine, $BITS bit: making the template prefix (15 seconds, once)" >&2
  # Older templates too: a prefix in use shares files with its template, but does not need it.
  rm -rf "$cache/wine$BITS"-*
  mkdir "$template.new"
  wine_environment "$template.new"
  visible=$(printf '%s\n' "$cache" "$here" /tmp)
  export visible
  (contained "$here/fill_template.sh" "$here/template.reg") >"$log" 2>&1 ||
    broken "could not make a prefix; see $log"
  mv "$template.new" "$template"
}

! is_prepared || exit 0
[ "$BITS" = 32 ] || command -v wine64 >/dev/null || [ -x /usr/lib/wine/wine64 ] ||
  unavailable "wine64 is not installed"
mkdir -p "$cache/run" "$stage"
(
  flock 9
  [ "$BITS" = 64 ] || [ -d "$system" ] || make_system
  [ -d "$template" ] || make_template
) 9>"$cache/wine$BITS.lock"
