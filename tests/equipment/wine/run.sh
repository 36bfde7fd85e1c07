#!/bin/sh
# Runs a Windows program in a fresh Wine prefix and ends with the program's exit code.
#
#   run.sh 64|32 [OPTION...] -- PROGRAM [ARGUMENT...]
#
#   --dir DIR         keeps what is printed on "TarvoRaw" and "Impresora pequeña" as DIR/job-N.prn;
#                     those of an earlier run are removed
#   --register DLL    registers a COM server first; repeatable
#   --before COMMAND  runs a shell command first, in the same prefix ("wine x.exe"); repeatable
#   --success N       exit code N becomes 0, and 0 becomes 1: a script that dies of an error ends
#                     with 0 under Wine's script host, so a script says that it got to its end
#   --timeout S       seconds for each program, 120 by default; afterwards exit code 124
#   --display         gives it a screen of 1024x768
#   --screenshots DIR the same; the program copies the file named in the variable TARVO_SCREEN to
#                     DIR/NAME.xwd at the moment that matters, and DIR/NAME.png is made of it
#   --cups SOCKET     lets it print to the queues of a cupsd
#   --visible DIR     lets 32-bit programs see one more directory (they see the project, the current
#                     directory, /tmp, the program's directory, and those above)
#
# Scripts (.vbs, .js) run with cscript.  Exit code 77: cannot run here, and why; 125: the equipment
# failed.  The variable TARVO_WINE_LOG, when set, is Wine's WINEDEBUG ("err+all" for its complaints).
set -eu
here=$(cd "$(dirname "$0")" && pwd)

usage() {
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

BITS=${1:-}
case $BITS in 64 | 32) shift ;; *) usage ;; esac
# shellcheck source=tests/equipment/wine/common.sh
. "$here/common.sh"

newline='
'
visible=''
see() { visible=$visible$newline$(realpath "$1"); }

jobs='' screenshots='' display='' cups='' success='' timeout=120 setup=''
while [ $# -gt 0 ] && [ "$1" != -- ]; do
  case $1 in
    --display) display=yes; shift; continue ;;
  esac
  [ $# -ge 2 ] || usage
  case $1 in
    --dir) mkdir -p "$2"; rm -f "$2"/job-*.prn; jobs=$(realpath "$2"); see "$2" ;;
    --screenshots) mkdir -p "$2"; screenshots=$(realpath "$2"); display=yes; see "$2" ;;
    --cups) cups=$(realpath "$2"); see "$(dirname "$2")" ;;
    --success) success=$2 ;;
    --timeout) timeout=$2 ;;
    --visible) see "$2" ;;
    --register) see "$(dirname "$2")"; setup=$setup$1$newline$(realpath "$2")$newline ;;
    --before) setup=$setup$1$newline$2$newline ;;
    *) usage ;;
  esac
  shift 2
done
[ $# -ge 2 ] || usage
shift
[ ! -e "$1" ] || see "$(dirname "$1")"
case $1 in
  *.vbs | *.js) ;;
  *)
    # Wine starts a program of this system as well, and then ends with 0 whatever comes of it.
    [ ! -f "$1" ] || [ "$(head -c 2 "$1")" = MZ ] || broken "$1 is not a Windows program"
    ;;
esac

is_prepared || "$here/prepare.sh" "$BITS" --tests || exit

prefix='' server='' inside=''
clean_up() {
  trap '' EXIT HUP INT TERM
  [ -z "$inside" ] || kill "$inside" 2>/dev/null || true
  [ -z "$server" ] || kill "$server" 2>/dev/null || true
  [ -z "$prefix" ] || rm -rf "$prefix" || { sleep 1; rm -rf "$prefix"; }
}
trap clean_up EXIT
trap 'exit 125' HUP INT TERM

# Hard links to the template's files, but registry and settings of its own.
clone() {
  for left in "$cache"/run/*; do
    owner=${left##*/}
    [ ! -d "$left" ] || [ -d "/proc/${owner%%.*}" ] || rm -rf "$left"
  done
  prefix=$(mktemp -d "$cache/run/$$.XXXXXX")
  cp -al "$template/." "$prefix/"
  for file in system.reg user.reg userdef.reg drive_c/windows/win.ini; do
    [ ! -f "$template/$file" ] || cp --remove-destination "$template/$file" "$prefix/$file"
  done
}

start_display() {
  command -v Xvfb >/dev/null || unavailable "Xvfb is not installed"
  mkdir "$prefix/screen"
  mkfifo "$prefix/screen/number"
  setpriv --pdeathsig KILL Xvfb -displayfd 3 -screen 0 1024x768x24 -fbdir "$prefix/screen" \
    -nolisten tcp -noreset 3>"$prefix/screen/number" >/dev/null 2>&1 &
  server=$!
  read -r number <"$prefix/screen/number" || broken "Xvfb did not start"
  export DISPLAY=":$number" TARVO_SCREEN="$prefix/screen/Xvfb_screen0"
}

clone
wine_environment "$prefix"
[ -z "${TARVO_WINE_LOG:-}" ] || export WINEDEBUG="$TARVO_WINE_LOG"
[ -z "$cups" ] || export CUPS_SERVER="$cups"
[ -z "$display" ] || start_display
see "$cache"
see "$here/../../.."
see /tmp
see .
export visible TARVO_TIMEOUT="$timeout"
export TARVO_JOBS="$jobs" TARVO_SPOOL_PROGRAM="$here/spool_job.sh"

# The set-up steps, one a line, go in front of the program's own words.
set -- -- "$@"
if [ -n "$setup" ]; then
  IFS=$newline
  set -f
  # shellcheck disable=SC2086
  set -- $setup "$@"
  set +f
  unset IFS
fi
contained "$here/inside.sh" "$@" &
inside=$!
status=0
wait "$inside" || status=$?
inside=

if [ -n "$screenshots" ]; then
  for picture in "$screenshots"/*.xwd; do
    [ ! -f "$picture" ] || { "$here/xwd_to_png.py" "$picture" "${picture%.xwd}.png" && rm "$picture"; }
  done
fi
if [ -n "$success" ]; then
  case $status in
    "$success") status=0 ;;
    0) status=1; echo "run.sh: the program ended with 0, but $success says that all went well" >&2 ;;
  esac
fi
exit "$status"
