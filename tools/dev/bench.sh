#!/bin/sh
# Runs every benchmark of the bench build, one after the other; arguments go to each of them.
set -eu
cd "$(dirname "$0")/../.."

found=0
for program in $(find build/bench -type f -name 'bench_*' -perm -u+x | sort); do
  found=1
  echo "== ${program##*/}"
  "$program" "$@"
done
[ $found -eq 1 ] || { echo "bench: the build has no benchmarks" >&2; exit 1; }
