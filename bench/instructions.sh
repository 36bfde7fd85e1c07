#!/bin/sh
# Instructions of one line, which unlike nanoseconds are the same on every run.
#
#   [N=COUNT] instructions.sh PROGRAM KIND...
#
# The program makes each kind of line N and 2N times under callgrind; what the second N cost, divided by N,
# is the cost of one, with the start of the program left out.
set -eu
program=$1
shift
command -v valgrind >/dev/null || { echo "instructions: valgrind is not installed" >&2; exit 1; }
n=${N:-20000}

# collected KIND COUNT: the instructions of one run
collected() {
  valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" 2>&1 |
    awk '/Collected/ { print $NF; found = 1 } END { exit !found }'
}

for kind; do
  once=$(collected "$kind" $n)
  twice=$(collected "$kind" $((2 * n)))
  printf '%-16s %6d instructions\n' "$kind" $(((twice - once) / n))
done
