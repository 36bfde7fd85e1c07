#!/bin/sh
# Prints jobs on a queue of a print server of its own and looks at what comes out.
#
# usage: test_cups.sh TARVORDP
# Exit code: 0 passed, 1 failed, 77 there is no print server here.
set -u
tarvordp=$1
equipment=$(cd "$(dirname "$0")/../../equipment/cups" && pwd)
# shellcheck source=tests/equipment/cups/cups_test.sh
. "$equipment/cups_test.sh"
cd "$work" || exit 1

printf '{A}\n{CUERPO=2}\n{N,8}\n{FINCUERPO}\n' >T.ID
cat >invoice.json <<'JOB'
{"report": "master-detail", "title": "Factura Nº 1", "directory": ".", "template": "T",
 "profile": "epson-9pin", "record": {"A": "Peña"}, "copies": 2,
 "details": [{"N": 1.5}, {"N": 2}, {"N": 3}]}
JOB
printf 'uno\n' >UNO.ID
printf 'dos\n' >DOS.ID
cat >form.json <<'JOB'
{"report": "form", "title": "Recibo", "directory": ".", "firstSheet": "UNO", "secondSheet": "DOS",
 "profile": "epson-9pin"}
JOB

# The same bytes as in a file, and the same number of jobs.
"$tarvordp" print invoice.json --printer file:invoice.prn || fail 'printing into a file'
"$tarvordp" print invoice.json --printer rawq || fail 'printing on a queue'
"$tarvordp" print form.json --printer file:form.prn 2>messages || fail 'a form into files'
"$tarvordp" print form.json --printer rawq 2>messages || fail 'a form on a queue'
"$server" wait "$jobs" 3 || fail 'jobs are missing'
same 'a master-detail report' invoice.prn "$jobs/job-1.prn"
[ "$(wc -c <invoice.prn)" -gt 100 ] || fail 'the report is short'
same 'the first sheet' form.prn "$jobs/job-2.prn"
same 'the second sheet' form.prn.2 "$jobs/job-3.prn"
says 'the title' 'Factura Nº 1' "$(cat "$jobs/job-1.title")"

# A queue that nobody has.
"$tarvordp" print invoice.json --printer NOPE >out 2>messages
says 'the status of an unknown queue' 1 $?
says 'what is told of it' 'No se reconoce el nombre de la impresora: NOPE
tarvordp: the system has no printer "NOPE": "lpstat -e" lists those it has; file:PATH prints into a file' \
  "$(cat messages)"
says 'the standard output' '' "$(cat out)"

# A job that cannot be completed is not submitted.
printf '{A[x]}\n{CUERPO=2}\n{FINCUERPO}\n' >T.ID
"$tarvordp" print invoice.json --printer rawq 2>messages
says 'the status of a report that fails' 3 $?
says 'what became of its job' 'tarvordp: the job was not sent to the printer' \
  "$(tail -n 1 messages)"
sleep 1
[ ! -e "$jobs/job-4.prn" ] || fail 'a job that is not whole came out'

# A refused report has a job that prepares the printer, and that is told.
printf '{A}\n{CUERPO=2}\n{FINCUERPO}\n' >T.ID
sed 's/"copies": 2/"canPrint": false/' invoice.json >refused.json
"$tarvordp" print refused.json --printer rawq 2>messages
says 'the status of a refused report' 1 $?
says 'what is told of its job' \
  'tarvordp: rawq: the job there holds no report, only 8 bytes that prepare the printer' \
  "$(tail -n 1 messages)"
"$server" wait "$jobs" 4 || fail 'the job of the refused report is missing'
printf '\033@\022\033P\022\033P' >prepared
same 'the job of a refused report' prepared "$jobs/job-4.prn"

conclude
