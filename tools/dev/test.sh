#!/bin/sh
# Everything that has to pass, the quick and likely failures first.  Each stage's output is kept in
# build/test/; what failed is shown.  A stage that is no test run (formatting, lint, a build) counts
# only when it fails.  The last line is the sum: "N passed, N failed, N skipped".
set -eu
cd "$(dirname "$0")/../.."
. tools/dev/setup.sh
. tools/dev/build.sh

logs=build/test
tally=$logs/tally
started=$(date +%s)

# finish STAGE STARTED OUTCOME: one line for a stage that has ended.
finish() {
  printf '%-18s %5s s   %s\n' "$1" "$(($(date +%s) - $2))" "$3"
}

show_failure() {
  echo "---- $1 failed; the end of $logs/$1.log:"
  tail -n 60 "$logs/$1.log"
  echo "----"
}

# step STAGE COMMAND...: a stage that must succeed, or say with exit code 77 that it cannot be done
# here; then the tests that need it say so too, and are counted.
step() {
  stage=$1 at=$(date +%s) status=0
  shift
  "$@" >"$logs/$stage.log" 2>&1 || status=$?
  case $status in
    0) finish "$stage" "$at" ok ;;
    77) finish "$stage" "$at" "NOT POSSIBLE: $(tail -n 1 "$logs/$stage.log")" ;;
    *)
      finish "$stage" "$at" FAILED
      show_failure "$stage"
      echo "0 1 0" >>"$tally"
      return 1
      ;;
  esac
}

# tests STAGE ARGUMENT...: what ctest runs with these arguments, counted one by one.
tests() {
  stage=$1 at=$(date +%s) status=0
  shift
  rm -f "$logs/$stage.xml"
  ctest "$@" -j "$(nproc)" --output-junit "$PWD/$logs/$stage.xml" \
    --test-output-size-passed 65536 --test-output-truncation head \
    >"$logs/$stage.log" 2>&1 || status=$?
  counts=$(tools/dev/junit.py "$logs/$stage.xml" "$status" 2>"$logs/$stage.notes") ||
    counts="0 1 0"
  echo "$counts" >>"$tally"
  finish "$stage" "$at" "$(sentence "$counts")"
  [ "$status" -eq 0 ] || show_failure "$stage"
  cat "$logs/$stage.notes"
}

# project_tests NAME: the tests of tests/NAME, which are a project of their own.
project_tests() {
  step "$1-tests-setup" cmake -S "tests/$1" -B "build/$1-tests" || return 0
  tests "$1" --test-dir "build/$1-tests" --no-tests=error
}

# skip STAGE REASON
skip() {
  finish "$1" "$(date +%s)" "SKIPPED: $2"
  echo "0 0 1" >>"$tally"
}

# sentence "PASSED FAILED SKIPPED"
sentence() {
  # shellcheck disable=SC2086
  printf '%s passed, %s failed, %s skipped' $1
}

conclude() {
  total=$(awk '{ p += $1; f += $2; s += $3 } END { print p + 0, f + 0, s + 0 }' "$tally")
  echo "$(($(date +%s) - started)) s"
  sentence "$total"
  echo
  case $total in
    0\ *) echo "dev: no test passed, so nothing is proved" >&2; exit 1 ;;
    *\ 0\ *) exit 0 ;;
    *) exit 1 ;;
  esac
}

need native checks bench
want windows wine spooler ui pages package
mkdir -p $logs
exec 8>"$logs/lock"
flock --nonblock 8 || { echo "dev: the tests are running here already" >&2; exit 1; }
: >$tally

step format tools/dev/format.sh --check || true
step native-build build native || conclude
tests native --preset native
# The tests' own sources are left to ./dev lint.
step lint tools/dev/tidy.py build/native src/ services/ tools/ fuzz/ || true
if step sanitize-build build sanitize; then tests sanitize --preset sanitize; fi
built=
for bits in 64 32; do
  if ! have_cross_compiler $bits; then
    skip "win$bits" "there is no compiler for Windows, $bits bit"
  elif step win$bits-build build win$bits; then
    step wine$bits-setup tests/equipment/wine/prepare.sh $bits || true
    built="$built $bits"
    tests win$bits --preset win$bits
  fi
done
if [ "$built" != " 64 32" ]; then
  skip package "the zip needs both Windows builds"
elif step package ./dev package; then
  project_tests package
fi
project_tests newcomer
# Their figures are for people; here they have to build and to end well.
step bench ./dev bench || true
conclude
