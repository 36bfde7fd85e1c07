#!/bin/sh
# inside.sh SETUP... -- PROGRAM ARGUMENT...: what run.sh does in its prefix; started where Wine can be
# called.  SETUP is --register DLL or --before COMMAND, done in the given order.
set -u

# windows_path FILE: as Wine's programs know it.
windows_path() {
  printf 'Z:%s' "$(realpath -m "$1")" | tr / '\134'
}

# Ends what Wine started for this prefix.  In a process namespace that happens by itself.
leave() {
  [ $$ -eq 1 ] || wineserver -k
  exit "$1"
}

fail() {
  printf 'run.sh: %s\n' "$*" >&2
  leave 125
}

limited() { timeout -k 5 "$TARVO_TIMEOUT" "$@"; }

while [ "$1" != -- ]; do
  case $1 in
    --register)
      limited wine regsvr32 /s "$(windows_path "$2")" ||
        fail "regsvr32 $2 failed with exit code $?"
      ;;
    --before)
      limited sh -c "$2" || fail "$2: failed with exit code $?"
      ;;
  esac
  shift 2
done
shift

case $1 in
  *.vbs | *.js)
    script=$(windows_path "$1")
    shift
    set -- cscript //nologo "$script" "$@"
    ;;
esac
limited wine "$@"
status=$?
case $status in
  124 | 137)
    printf 'run.sh: no end within %s s, or killed: %s\n' "$TARVO_TIMEOUT" "$*" >&2
    ;;
esac
leave $status
