# What the Wine scripts share; sourced with BITS set to 64 or 32, and here= their directory.
# shellcheck shell=sh disable=SC2034,SC2154
#
# Everything made once is kept below $cache:
#   wine64-MARK, wine32-MARK   the template prefixes
#   i386-MARK                  a small i386 Debian in which the 32-bit Wine runs
#   run/                       the copies of a template that are in use
# MARK stands for the recipe: when a script that makes the thing changes, it is made again.

cache=${TARVO_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/libtarvordp}

mark() { cat "$@" | cksum | cut -d ' ' -f 1; }

# 32-bit packages beside the 64-bit ones would do as well, but then the two architectures' versions
# of every library have to be equal, which mirrors do not always offer.
i386_packages='fonts-liberation fonts-wine libcups2 wine wine32'
make_system=$here/../debian/make_system.sh
system=$cache/i386-$(echo "$i386_packages" | mark "$make_system" -)
template=$cache/wine$BITS-$(echo "$i386_packages" | mark "$here/fill_template.sh" \
  "$here/template.reg" "$make_system" -)
# What the new root directory of 32-bit runs is mounted on.
stage=$cache/stage

is_prepared() { [ -d "$template" ] && { [ "$BITS" = 64 ] || [ -d "$system" ]; }; }

# Cannot run: ctest counts exit code 77 as skipped.
unavailable() {
  echo "wine, $BITS bit: $*"
  exit 77
}

broken() {
  echo "wine, $BITS bit: $*" >&2
  exit 125
}

# How to give a program mounts and processes of its own, so that nothing stays behind when it ends;
# empty when this user may not.
isolation() {
  for options in '--mount --pid --fork --kill-child --mount-proc' \
    '--user --map-root-user --mount --pid --fork --kill-child --mount-proc'; do
    # shellcheck disable=SC2086
    if unshare $options true 2>/dev/null; then
      echo "$options"
      return
    fi
  done
}

# contained COMMAND...: replaces this shell by a command that runs where Wine of these bits is; the
# directories in $visible, one a line, can be seen from there.  When the script that started this
# shell ends, even by force, the command is killed with all that it started.
contained() {
  options=$(isolation)
  if [ -z "$options" ]; then
    [ "$BITS" = 64 ] || unavailable "may not make a mount namespace (unshare --mount)"
    set -- setpriv --pdeathsig KILL "$@"
  elif [ "$BITS" = 32 ]; then
    # shellcheck disable=SC2086
    set -- setpriv --pdeathsig KILL unshare $options "$here/enter_i386.sh" "$system" "$stage" "$@"
  else
    # shellcheck disable=SC2086
    set -- setpriv --pdeathsig KILL unshare $options "$@"
  fi
  exec "$@"
}

# The environment of every Wine program, for the prefix $1.
wine_environment() {
  export WINEPREFIX="$1" HOME="$1"
  if [ "$BITS" = 64 ]; then export WINEARCH=win64; else export WINEARCH=win32; fi
  export WINEDEBUG=-all
  # No .NET and no browser engine to install, no debugger, no entries in the desktop's menus.
  export WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe,winemenubuilder.exe='
  export LC_ALL="${TARVO_WINE_LOCALE:-C.UTF-8}"
  # No printers but ours, no display but ours.
  export CUPS_SERVER=/nonexistent
  unset DISPLAY LANG LANGUAGE XDG_RUNTIME_DIR WAYLAND_DISPLAY
}
