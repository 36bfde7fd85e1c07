#!/bin/sh
# A CUPS back-end that keeps the jobs: job-N.prn is what a printer would have received, job-N.title
# the job's title.  The device is keep:DIRECTORY.
#
# CUPS calls it with: job-id user title copies options [file]; without arguments to ask what there is.
if [ $# -lt 5 ]; then
  echo 'direct keep "Unknown" "Kept in a directory"'
  exit 0
fi
cd "${DEVICE_URI#keep:}" || exit 1
cat ${6:+"$6"} >".job.$$" || exit 1
(
  flock 9
  n=1
  while [ -e "job-$n.prn" ]; do n=$((n + 1)); done
  printf '%s\n' "$3" >"job-$n.title"
  mv ".job.$$" "job-$n.prn"
) 9>.lock
