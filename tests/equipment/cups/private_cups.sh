#!/bin/sh
# A print server for tests: a cupsd of our own that listens on a socket file and nowhere else.  It
# has a raw queue "rawq" for a network printer on the loopback (sink.py); each job's bytes come out as
# DIR/job-N.prn, its title as DIR/job-N.title, N counting from 1 in the order in which they are
# printed; jobs of an earlier server are removed.
#
#   private_cups.sh run DIR -- COMMAND...      runs a command with such a server; CUPS_SERVER is set
#   private_cups.sh start DIR                  starts one and prints its socket (for CUPS_SERVER)
#   private_cups.sh stop DIR                   stops it; the jobs stay
#   private_cups.sh queue DIR NAME             adds one more queue
#   private_cups.sh wait DIR COUNT [SECONDS]   waits until so many jobs have come out (10 s)
#   private_cups.sh job_names DIR              prints the titles, one a line
#
# Exit code 77: there is no cupsd here; 1: it failed, or a job did not come.
set -eu
here=$(cd "$(dirname "$0")" && pwd)

usage() {
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

fail() {
  echo "private_cups.sh: $*" >&2
  exit 1
}

# The server keeps its files apart from the jobs, under a short name: the path of a socket is limited
# to a hundred characters.  DIR/.server leads there.
home_of() {
  readlink "$1/.server" || fail "no server was started for $1"
}

configure() {
  mkdir -p "$home/spool" "$home/cache" "$home/state" "$home/tmp" "$home/bin/backend" \
    "$home/data/mime" "$home/data/banners"
  # Nothing is converted, so a document is bytes under either name.
  printf 'application/%s\n' octet-stream vnd.cups-raw >"$home/data/mime/mime.types"
  ln -s /usr/lib/cups/daemon "$home/bin/daemon"
  # A back-end that only its owner may execute is run as the owner, not as "lp".
  cp "$here/socket_backend.sh" "$home/bin/backend/socket"
  chmod 700 "$home/bin/backend/socket"
  cat >"$home/cupsd.conf" <<CONF
Listen $home/sock
LogLevel warn
Browsing No
WebInterface No
DefaultAuthType None
PreserveJobHistory Yes
PreserveJobFiles No
JobRetryInterval 1
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
CONF
  cat >"$home/cups-files.conf" <<CONF
ServerRoot $home
ServerBin $home/bin
DataDir $home/data
RequestRoot $home/spool
CacheDir $home/cache
StateDir $home/state
TempDir $home/tmp
ErrorLog $home/error_log
AccessLog $home/access_log
PageLog $home/page_log
FatalErrors config
SyncOnClose No
CONF
}

answers() {
  [ -S "$home/sock" ] && CUPS_SERVER="$home/sock" lpstat -r 2>/dev/null | grep -q 'is running'
}

start() {
  cupsd=$(PATH=$PATH:/usr/sbin:/sbin command -v cupsd) ||
    { echo "private_cups.sh: cupsd is not installed"; exit 77; }
  command -v lp >/dev/null || { echo "private_cups.sh: cups-client is not installed"; exit 77; }
  [ -x /usr/lib/cups/backend-available/socket ] ||
    { echo "private_cups.sh: cups has no back-end for network printers"; exit 77; }
  mkdir -p "$1"
  [ ! -e "$1/.server" ] || fail "a server is running for $1 already"
  rm -f "$1"/job-*.prn "$1"/job-*.title
  home=$(mktemp -d /tmp/tarvo-cups.XXXXXX)
  ln -s "$home" "$1/.server"
  ln -s "$(realpath "$1")" "$home/jobs"
  configure
  start_printer
  "$cupsd" -f -c "$home/cupsd.conf" -s "$home/cups-files.conf" >"$home/output" 2>&1 </dev/null &
  echo $! >"$home/pid"
  for _ in $(seq 100); do
    if answers || ! kill -0 "$(cat "$home/pid")" 2>/dev/null; then break; fi
    sleep 0.05
  done
  if ! add_queue "$1" rawq; then
    cat "$home/output" "$home/error_log" >&2 2>/dev/null || true
    stop "$1"
    fail "cupsd did not start"
  fi
}

start_printer() {
  python3 "$here/sink.py" "$home/jobs" "$home/port" >"$home/printer" 2>&1 </dev/null &
  echo $! >"$home/printer_pid"
  for _ in $(seq 100); do
    [ ! -e "$home/port" ] || return 0
    sleep 0.05
  done
  fail "the printer did not start: $(cat "$home/printer")"
}

# All queues lead to the one printer.
add_queue() {
  home=$(home_of "$1")
  CUPS_SERVER="$home/sock" PATH=$PATH:/usr/sbin:/sbin \
    lpadmin -p "$2" -E -v "socket://127.0.0.1:$(cat "$home/port")" -m raw -o printer-error-policy=retry-job \
    2>"$home/lpadmin" || { cat "$home/lpadmin" >&2; return 1; }
}

stop() {
  home=$(home_of "$1")
  pid=$(cat "$home/pid")
  kill "$pid" 2>/dev/null || true
  for _ in $(seq 100); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.05
  done
  kill -9 "$pid" 2>/dev/null || true
  kill "$(cat "$home/printer_pid")" 2>/dev/null || true
  rm -rf "$home" "$1/.server"
}

run() {
  directory=$1
  shift
  if [ "${1:-}" != -- ] || [ $# -lt 2 ]; then usage; fi
  shift
  start "$directory"
  trap 'stop "$directory"' EXIT
  trap 'exit 1' HUP INT TERM
  status=0
  CUPS_SERVER="$home/sock" "$@" || status=$?
  exit $status
}

count_jobs() {
  n=0
  while [ -e "$1/job-$((n + 1)).prn" ]; do n=$((n + 1)); done
  echo $n
}

wait_for() {
  end=$(($(date +%s) + ${3:-10}))
  while [ "$(count_jobs "$1")" -lt "$2" ]; do
    [ "$(date +%s)" -le $end ] || fail "only $(count_jobs "$1") of $2 jobs came out"
    sleep 0.05
  done
}

job_names() {
  for n in $(seq "$(count_jobs "$1")"); do cat "$1/job-$n.title"; done
}

[ $# -ge 2 ] || usage
command=$1
shift
case $command in
  run) run "$@" ;;
  start) start "$1" && echo "$home/sock" ;;
  stop) stop "$1" ;;
  queue) add_queue "$1" "$2" ;;
  wait) wait_for "$@" ;;
  job_names) job_names "$1" ;;
  *) usage ;;
esac
