# Sourced by tests that print through a print server, with equipment= this file's directory: starts a
# server of the test's own, and stops it when the test ends.  Without one the test ends as skipped.
# shellcheck shell=sh disable=SC2154
#
#   $server, $jobs   private_cups.sh, and the directory of the jobs that came out of its queue "rawq"
#   $work            a directory for the test

server=$equipment/private_cups.sh
work=$(mktemp -d)
jobs=$work/jobs
failures=0

trap '"$server" stop "$jobs" 2>/dev/null; rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
socket=$("$server" start "$jobs") || {
  status=$?
  printf '%s\n' "$socket"
  exit $status
}
export CUPS_SERVER="$socket"

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# same WHAT EXPECTED ACTUAL: two files
same() {
  if cmp "$2" "$3"; then echo "ok: $1"; else fail "$1"; fi
}

# says WHAT EXPECTED ACTUAL: two texts
says() {
  if [ "$2" = "$3" ]; then echo "ok: $1"; else fail "$1: expected <$2>, got <$3>"; fi
}

# The test's last command.
conclude() {
  [ $failures -eq 0 ] || { echo "$failures failed"; exit 1; }
  echo 'all passed'
}
