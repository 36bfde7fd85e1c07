#!/bin/sh
# Runs every benchmark of the bench build, one after the other, arguments going to each of them; then
# counts the instructions of a write, and measures what calls cost a Windows client.
set -eu
cd "$(dirname "$0")/../.."
. tools/dev/build.sh

found=0
for program in $(find build/bench -type f -name 'bench_*' -perm -u+x | sort); do
  found=1
  echo "== ${program##*/}"
  "$program" "$@"
done
[ $found -eq 1 ] || { echo "bench: the build has no benchmarks" >&2; exit 1; }

echo "== instructions"
cmake --build build/bench --target instructions | grep instructions\$

for bits in 64 32; do
  if ! have_cross_compiler $bits; then
    echo "== calls of Windows clients, $bits bit: skipped, there is no compiler"
    continue
  fi
  echo "== calls of Windows clients, $bits bit"
  build win$bits >/dev/null
  build win$bits --target call_costs >/dev/null
  status=0
  bench/windows/run.sh $bits build/win$bits || status=$?
  [ $status -eq 0 ] || [ $status -eq 77 ] || exit $status
done
