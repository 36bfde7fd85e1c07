#!/bin/sh
# Prints three reports of a small trading company from its database, as an application would, and
# shows what left for the printer.  The native build must be there.
#
#   demo.sh [TARVORDP [FOLDER]]     default: build/native/tarvordp build/demo
set -eu
cd "$(dirname "$0")/../.."

tarvordp=${1:-build/native/tarvordp}
out=${2:-build/demo}
[ $# -ge 2 ] || rm -rf "$out"
mkdir -p "$out"

for report in invoice payroll ledger; do
  "$tarvordp" print samples/trading/$report.json --printer "file:$out/$report.prn" --yes
done

# view PRINTED NAME: pictures of its pages, and all of them as PDF.
view() {
  "$tarvordp" view "$out/$1" --profile epson-9pin --png "$out/$2" --pdf "$out/$2.pdf"
}
view invoice.prn invoice
view payroll.prn payroll-front
view payroll.prn.2 payroll-back
"$tarvordp" view "$out/ledger.prn" --profile epson-9pin --pdf "$out/ledger.pdf"

# The first page alone: to the first form feed.
python3 -c 'import sys; sys.stdout.buffer.write(sys.stdin.buffer.read().split(b"\f")[0])' \
  <"$out/invoice.prn" |
  "$tarvordp" view - --profile epson-9pin

cat <<TEXT

Printed from samples/trading/trading.sqlite: an invoice, a payroll receipt and a stock ledger.
The bytes as the printer gets them are in $out/*.prn, pictures of the pages beside them (png, pdf).
Look at pages:     $tarvordp view $out/payroll.prn --profile epson-9pin
Change a template: samples/trading/plantillas/FACTURA.ID, then $tarvordp check it, and print again.
On paper:          $tarvordp print samples/trading/invoice.json --printer YOUR_PRINTER
TEXT
