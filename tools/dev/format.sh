#!/bin/sh
# format.sh -i | --check: formats the project's C++ sources, or says which are not formatted.
# Files not yet known to git count; ignored ones (the build directories) do not.
set -eu
cd "$(dirname "$0")/../.."

case ${1:-} in
  -i) options='-i' ;;
  --check) options='--dry-run --Werror' ;;
  *) echo "usage: format.sh -i | --check" >&2; exit 2 ;;
esac

sources() {
  if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp'
  else
    find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0
  fi
}

# A file that is deleted but still known to git is no source any more.
# shellcheck disable=SC2086
sources | xargs -0 -r sh -c 'for f; do [ -f "$f" ] && printf "%s\0" "$f"; done; :' sh |
  xargs -0 -r -n 16 -P "$(nproc)" clang-format $options
