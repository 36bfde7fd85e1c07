#!/bin/sh
# Looks at a built server from outside:
#
#   check_server.sh OBJDUMP DLL
#
# exactly the four exports, under their plain names; nothing imported but the platform's own
# libraries; stripped, and small: the library's server below 700,000 bytes, the companion's below
# 450,000.
set -eu
objdump=$1
dll=$2
failures=0

fail() {
  echo "$(basename "$dll"): $1" >&2
  failures=$((failures + 1))
}

expected='DllCanUnloadNow
DllGetClassObject
DllRegisterServer
DllUnregisterServer'
exports=$("$objdump" -p "$dll" |
  sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p' | sort)
[ "$exports" = "$expected" ] || fail "exports are: $(echo $exports)"

platform=' advapi32.dll gdi32.dll kernel32.dll msvcrt.dll ole32.dll oleaut32.dll user32.dll winspool.drv '
for name in $("$objdump" -p "$dll" | sed -n 's/^[[:space:]]*DLL Name: //p' | tr '[:upper:]' '[:lower:]'); do
  case $platform in
    *" $name "*) ;;
    *) fail "imports $name" ;;
  esac
done

size=$(stat -c %s "$dll")
case $dll in
  *Rdp*) most=700000 ;;
  *) most=450000 ;;
esac
[ "$size" -lt "$most" ] || fail "$size bytes, and $most are the most"
"$objdump" -t "$dll" | grep -q 'no symbols' || fail 'not stripped'

echo "$(basename "$dll"): $size bytes"
exit "$((failures > 0))"
