#!/bin/sh
# Proves the test equipment: that it gives back the bytes that were printed, shows what was on the
# screen, tells success from failure, and leaves nothing behind.
#
#   selftest.sh cups           the private print server, printing with lp
#   selftest.sh wine 64|32     printing without and with CUPS, and the ways in which a run can end
#   selftest.sh screen 64|32   pictures of the screen
#
# Exit code 77: cannot run here, and why.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
cups=$here/cups/private_cups.sh
wine=$here/wine/run.sh

work=$(mktemp -d "${TMPDIR:-/tmp}/tarvo-selftest.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM

python3 -c 'import sys; sys.stdout.buffer.write(bytes(range(256)))' >"$work/expected"

fail() {
  echo "selftest.sh: $*" >&2
  exit 1
}

# expect CODE COMMAND...
expect() {
  code=$1 status=0
  shift
  "$@" || status=$?
  [ $status -ne 77 ] || [ "$code" -eq 77 ] || exit 77
  [ $status -eq "$code" ] || fail "exit code $status instead of $code: $*"
}

# jobs DIR COUNT: exactly so many came out, each with the expected bytes.
jobs() {
  for n in $(seq "$2"); do
    cmp "$1/job-$n.prn" "$work/expected" || fail "job $n of $1 differs"
  done
  [ ! -e "$1/job-$(($2 + 1)).prn" ] || fail "more than $2 jobs in $1"
}

titles() {
  [ "$("$cups" job_names "$1")" = "$2" ] || fail "titles: $("$cups" job_names "$1")"
}

compile_probe() {
  case $BITS in 64) prefix=x86_64 ;; *) prefix=i686 ;; esac
  compiler=$prefix-w64-mingw32-g++-win32
  command -v "$compiler" >/dev/null || { echo "$compiler is not installed"; exit 77; }
  "$compiler" -std=c++20 -Wall -Wextra -O1 -static -o "$work/probe.exe" "$here/probe.cpp" \
    -lwinspool -lgdi32
}

test_cups() {
  # shellcheck disable=SC2016
  expect 0 "$cups" run "$work/jobs" -- sh -euc '
    lp -d rawq -o raw -t "Relación nº 1" "$2/expected" >"$2/lp.log"
    lp -d rawq -o raw -t "dos" - <"$2/expected" >>"$2/lp.log"
    "$1" wait "$2/jobs" 2' sh "$cups" "$work"
  jobs "$work/jobs" 2
  titles "$work/jobs" "Relación nº 1
dos"
  expect 5 "$cups" run "$work/jobs" -- sh -c 'exit 5'
  jobs "$work/jobs" 0
}

test_wine_printing() {
  expect 0 "$wine" "$BITS" --dir "$work/out" \
    --before "wine '$work/probe.exe' print TarvoRaw uno" \
    -- "$work/probe.exe" print "Impresora pequeña" dos
  jobs "$work/out" 2
  expect 1 "$wine" "$BITS" -- "$work/probe.exe" print NoSuchPrinter uno
  expect 0 "$cups" start "$work/queue" >"$work/socket"
  expect 0 "$wine" "$BITS" --cups "$(cat "$work/socket")" \
    -- "$work/probe.exe" print rawq "Relación nº 1"
  status=0
  "$cups" wait "$work/queue" 1 || status=$?
  "$cups" stop "$work/queue"
  [ $status -eq 0 ] || exit $status
  jobs "$work/queue" 1
  titles "$work/queue" "Relación nº 1"
}

test_wine_endings() {
  echo 'WScript.Quit 42' >"$work/good.vbs"
  echo 'NoSuchThing.Call : WScript.Quit 42' >"$work/dies.vbs"
  echo 'Do : Loop' >"$work/endless.vbs"
  expect 42 "$wine" "$BITS" -- "$work/good.vbs"
  expect 0 "$wine" "$BITS" --success 42 -- "$work/good.vbs"
  expect 1 "$wine" "$BITS" --success 42 -- "$work/dies.vbs"
  expect 124 "$wine" "$BITS" --timeout 2 -- "$work/endless.vbs"
  expect 125 "$wine" "$BITS" --register "$work/probe.exe" -- "$work/good.vbs"
  expect 125 "$wine" "$BITS" --before false -- "$work/good.vbs"
  expect 125 "$wine" "$BITS" -- /bin/false
}

test_screen() {
  expect 0 "$wine" "$BITS" --screenshots "$work/pictures" \
    -- "$work/probe.exe" screen "$work/pictures/red.xwd"
  python3 - "$work/pictures/red.png" <<'PYTHON' || fail "the screen is not red"
import sys, zlib
data = open(sys.argv[1], "rb").read()
size = int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big")
start = data.index(b"IDAT")
length = int.from_bytes(data[start - 4:start], "big")
rows = zlib.decompress(data[start + 4:start + 4 + length])
sys.exit(size != (1024, 768) or rows != (b"\0" + b"\xff\0\0" * 1024) * 768)
PYTHON
}

case ${1:-}/${2:-} in
  cups/)
    test_cups
    ;;
  wine/64 | wine/32)
    BITS=$2
    compile_probe
    test_wine_printing
    test_wine_endings
    ;;
  screen/64 | screen/32)
    BITS=$2
    compile_probe
    test_screen
    ;;
  *)
    sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
