#!/bin/sh
# What a call costs a Windows client, under Wine: a table for each bitness.
#
#   run.sh [64|32 BUILD]...     BUILD holds the servers and call_costs.exe; by default both builds
#                               of the project, build/win64 and build/win32
#
# Exit code 77: cannot run here, and why.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
[ $# -gt 0 ] || set -- 64 "$root/build/win64" 32 "$root/build/win32"

work=$(mktemp -d "${TMPDIR:-/tmp}/tarvo-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM

windows_path() { printf 'Z:%s' "$(realpath -m "$1")" | tr / '\134'; }

while [ $# -ge 2 ]; do
  script="wine cscript //nologo '$(windows_path "$here/call_costs.vbs")' \
'$(windows_path "$work/script.txt")'; test \$? -eq 42"
  "$root/tests/equipment/wine/run.sh" "$1" --success 42 --visible "$work" \
    --register "$2/LibTarvoRdpCI_2402.dll" --register "$2/LibTarvoCI_2402.dll" \
    --before "$script" -- "$2/call_costs.exe" "$(windows_path "$work/script.txt")"
  shift 2
done
