#!/bin/sh
# Prints pages through a print server of its own and looks at what comes out.
#
# usage: test_cups.sh PRINT_PAGES
# Exit code: 0 passed, 1 failed, 77 there is no print server here.
set -u
print_pages=$1
equipment=$(cd "$(dirname "$0")/../equipment/cups" && pwd)
# shellcheck source=tests/equipment/cups/cups_test.sh
. "$equipment/cups_test.sh"

# prints NUMBER QUEUE TITLE ROWS: job NUMBER has the same bytes as the file.
prints() {
  says "job $1 is taken" '' "$("$print_pages" "$2" "$3" "$4")"
  "$print_pages" "file:$work/file" "$3" "$4"
  "$server" wait "$jobs" "$1" || says "job $1 comes out" yes no
  says "the bytes of job $1" "$(cksum <"$work/file")" "$(cksum <"$jobs/job-$1.prn")"
  says "job $1 is a PDF" '%PDF-1.4' "$(head -n 1 "$jobs/job-$1.prn")"
}

# failure PRINTER: what is said, up to the server's own words, and the exit code
failure() {
  said=$("$print_pages" "$1" Ventas 1) && status=0 || status=$?
  echo "${said%% (*} $status"
}

# Pages say what they are: a server that knows no PDF takes none.
says 'a server without PDF' '482: Printer error: rawq 1' "$(failure rawq)"
says 'nothing is left of a job that was refused' '' "$(lpstat -o rawq)"
home=$(readlink "$jobs/.server")
echo 'application/pdf pdf string(0,%PDF)' >>"$home/data/mime/mime.types"
kill -HUP "$(cat "$home/pid")"
sleep 1

"$server" queue "$jobs" 'Impresión' || says 'a second queue' yes no

prints 1 rawq 'Planilla Nº 2' 70
says 'its title' 'Planilla Nº 2' "$(cat "$jobs/job-1.title")"
prints 2 'Impresión' 'Mucho' 100000
prints 3 'rawq/factura' "$(printf 'a\tb')" 1
says 'controls in a title are blanks' 'a b' "$(cat "$jobs/job-3.title")"
prints 4 rawq "$(printf 'ñ%.0s' $(seq 200))" 0
says 'a long title is cut between characters' "$(printf 'ñ%.0s' $(seq 127))" \
  "$(cat "$jobs/job-4.title")"

for unknown in nosuch 'rawq ' '' '/rawq'; do
  says "the unknown printer <$unknown>" "482: Printer error: $unknown 1" "$(failure "$unknown")"
done
"$server" stop "$jobs"
says 'a server that is away' '482: Printer error: rawq 1' "$(failure rawq)"

conclude
