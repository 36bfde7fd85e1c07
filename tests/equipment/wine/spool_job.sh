#!/bin/sh
# The printer behind LPT1: in a test prefix.  Wine starts it for each job, with the job's bytes as
# its input, and waits for it.  They become $TARVO_JOBS/job-N.prn, N counting from 1.
exec >/dev/null
if [ -z "${TARVO_JOBS:-}" ]; then
  echo "spool_job.sh: a job was printed, but run.sh was given no --dir to keep it in" >&2
  exit 1
fi
cd "$TARVO_JOBS" || exit 1
cat >".job.$$"
(
  flock 9
  n=1
  while [ -e "job-$n.prn" ]; do n=$((n + 1)); done
  mv ".job.$$" "job-$n.prn"
) 9>.lock
