#!/bin/sh
# The CUPS back-end for network printers, with a note of each job's title: job-N.title beside the
# job-N.prn that the printer (sink.py) makes of the same job.  The job itself goes through CUPS's own
# back-end.  One job at a time, so that the numbers agree.
#
# CUPS calls it with: job-id user title copies options [file]; without arguments to ask what there is.
real=/usr/lib/cups/backend-available/socket
[ $# -ge 5 ] || exec "$real"
# Our own folder is the server's; its jobs are beside it.
jobs=$(dirname "$0")/../../jobs
exec 9>"$jobs/.lock"
flock 9
n=1
while [ -e "$jobs/job-$n.title" ]; do n=$((n + 1)); done
printf '%s\n' "$3" >"$jobs/job-$n.title"
"$real" "$@" || { status=$?; rm -f "$jobs/job-$n.title"; exit $status; }
# The printer has the bytes; it is done when the file is there.
for _ in $(seq 200); do
  [ ! -e "$jobs/job-$n.prn" ] || exit 0
  sleep 0.05
done
exit 1
