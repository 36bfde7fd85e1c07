#!/bin/sh
# Prints through a print server of its own and looks at what comes out.
#
# usage: test_cups.sh PRINT_SAMPLES
# Exit code: 0 passed, 1 failed, 77 there is no print server here.
set -u
samples=$1
equipment=$(cd "$(dirname "$0")/../equipment/cups" && pwd)
# shellcheck source=tests/equipment/cups/cups_test.sh
. "$equipment/cups_test.sh"
trap '' PIPE
count=0 # jobs that must have come out by now

# expect_jobs NUMBER: so many more come out
expect_jobs() {
  count=$((count + $1))
  "$server" wait "$jobs" $count || fail "jobs are missing"
}

title_of() { cat "$jobs/job-$1.title"; }

# The same bytes as the file back-end's, one job for each document, with its name.
"$samples" calibration "file:$work/file" || fail "printing into files"
"$samples" calibration rawq || fail "printing on a queue"
expect_jobs 3
same 'the test page' "$work/file" "$jobs/job-1.prn"
same 'the vertical rule' "$work/file.2" "$jobs/job-2.prn"
same 'the horizontal rule' "$work/file.3" "$jobs/job-3.prn"
[ "$(wc -c <"$jobs/job-1.prn")" -gt 500 ] || fail 'the test page is short'
says 'the title of the first job' 'Página de prueba' "$(title_of 1)"
says 'the title of the second job' 'Reglas Nº 2' "$(title_of 2)"
says 'the title of the third job' 'Reglas Nº 2' "$(title_of 3)"

# More than any buffer holds.
"$samples" bulk "file:$work/bulk" 100000 >/dev/null || fail 'printing much into a file'
"$samples" bulk rawq 100000 >/dev/null || fail 'printing much on a queue'
expect_jobs 1
same 'a large document' "$work/bulk" "$jobs/job-4.prn"

# Titles that a server would refuse.
long=$(printf 'ñ%.0s' $(seq 200))
cut=$(printf 'ñ%.0s' $(seq 127))
"$samples" title rawq "$long"
expect_jobs 1
says 'a long title is cut between characters' "$cut" "$(title_of $count)"
"$samples" title rawq "$(printf 'a\tb\nc')"
expect_jobs 1
says 'controls in a title are blanks' 'a b c' "$(title_of $count)"
"$samples" title rawq ''
expect_jobs 1
printf 'una l\241nea\r\n' >"$work/line"
same 'a document without a name' "$work/line" "$jobs/job-$count.prn"

# Names of queues.
"$server" queue "$jobs" 'Impresión' || fail 'no second queue'
"$samples" title 'Impresión' 'Cola'
expect_jobs 1
says 'a queue with a Spanish name' 'Cola' "$(title_of $count)"
"$samples" title 'rawq/factura' 'Instancia'
expect_jobs 1
says 'an instance of a queue' 'Instancia' "$(title_of $count)"
for unknown in nosuch 'raw' 'rawq ' '' '/rawq' '/'; do
  says "the unknown printer <$unknown>" "No se reconoce el nombre de la impresora: $unknown" \
    "$("$samples" title "$unknown" x 2>&1)"
done
says 'the code of an unknown printer' 'openPrinter: false, error 1030' \
  "$("$samples" pause nosuch </dev/null)"

# A document is submitted when it ends, and only then.
"$samples" close rawq >"$work/close"
says 'a document that does not end' 'openPrinter: true
startDocument: true
write: true
closePrinter: true' "$(cat "$work/close")"

# A document that is left open is completed by the next openPrinter, whether that succeeds or not.
"$samples" bulk "file:$work/one" 1 >/dev/null || fail 'printing a line into a file'
"$samples" bulk "file:$work/two" 2 >/dev/null || fail 'printing two lines into a file'
"$samples" reopen rawq rawq >"$work/reopened" || fail 'printing after a document that was left open'
says 'the answers after a document that was left open' 'openPrinter: true
startDocument: true
write: true
openPrinter: true
startDocument: true
write: true
endDocument of the first: false, error 9
endDocument: true
closePrinter: true' "$(cat "$work/reopened")"
expect_jobs 2
same 'the document that was left open' "$work/one" "$jobs/job-$((count - 1)).prn"
says 'the title of the document that was left open' 'Abierto' "$(title_of $((count - 1)))"
same 'the document after it' "$work/two" "$jobs/job-$count.prn"
says 'the title of the document after it' 'Siguiente' "$(title_of $count)"
says 'an unknown printer after a document that was left open' 'openPrinter: true
startDocument: true
write: true
openPrinter: false, error 1030
endDocument of the first: false, error 9' "$("$samples" reopen rawq nosuch)"
expect_jobs 1
same 'the document before the unknown printer' "$work/one" "$jobs/job-$count.prn"
says 'its title' 'Abierto' "$(title_of $count)"

# paused_print COMMAND...: a document in whose pause the command runs
paused_print() {
  mkfifo "$work/operator"
  : >"$work/paused"
  "$samples" pause rawq <"$work/operator" >>"$work/paused" &
  printing=$!
  exec 3>"$work/operator"
  while ! grep -q '^write' "$work/paused"; do
    kill -0 $printing 2>/dev/null || break
    sleep 0.05
  done
  "$@"
  echo >&3
  exec 3>&-
  wait $printing
  rm "$work/operator"
}
nothing_new() {
  sleep 1
  [ ! -e "$jobs/job-$((count + 1)).prn" ] || fail 'a document came out before its end'
}
paused_print nothing_new
says 'a document that pauses' 'openPrinter: true
startDocument: true
write: true
endDocument: true
closePrinter: true' "$(cat "$work/paused")"
expect_jobs 1
says 'the title of the document that paused' 'Listado' "$(title_of $count)"

# What could not be collected whole is not submitted.
says 'no room for temporary files' 'openPrinter: true
startDocument: false, error 2' "$(TMPDIR=$work/missing "$samples" bulk rawq 10)"
(
  trap '' XFSZ
  ulimit -f 100
  "$samples" bulk rawq 10000
) >"$work/full"
says 'a document that does not fit' 'openPrinter: true
startDocument: true
write: false, error 27
endDocument: false, error 27
closePrinter: true' "$(cat "$work/full")"
nothing_new
[ -z "$(find "${TMPDIR:-/tmp}" -maxdepth 1 -name 'tarvo-??????' -newer "$work/line")" ] ||
  fail 'a temporary file was left'

# The server goes away: first in the middle of a document, then before one.
paused_print "$server" stop "$jobs"
says 'a server that is away at the end' 'endDocument: false, error 1282' \
  "$(grep endDocument "$work/paused")"
says 'a server that is away at the start' 'openPrinter: false, error 1282' \
  "$("$samples" pause rawq </dev/null)"

conclude
