# Installing what is missing; sourced by ./dev and its parts, from the project's root.
#
# need PURPOSE...   installs the packages of these purposes (sections of packages.txt); ends the
#                   program with exit code 1 when one of them cannot be had.
# want PURPOSE...   the same, but goes on without: the tests concerned say so and count as skipped.
# shellcheck shell=sh

# Prints the packages of the given purposes.
packages_of() {
  for purpose in "$@"; do
    awk -v section="[$purpose]" '
      /^\[/ { inside = ($1 == section); found = found || inside; next }
      inside && NF && !/^#/ { print $1 }
      END { exit !found }' packages.txt ||
      { echo "setup: packages.txt has no section [$purpose]" >&2; return 1; }
  done
}

# Prints those of the given packages that are not installed.
missing_packages() {
  for package in "$@"; do
    case $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true) in
      installed) ;;
      *) echo "$package" ;;
    esac
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "not root, and there is no sudo"
    return 1
  fi
}

apt() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -qq \
    -o Dpkg::Use-Pty=0 -o APT::Install-Recommends=false "$@" >>build/setup.log 2>&1
}

# The index is brought up to date only after an installation failed for lack of it; and an index
# that cannot be brought up to date may still be good enough.
install_packages() {
  echo "setup: installing $*" >&2
  mkdir -p build
  : >build/setup.log
  if ! apt install "$@"; then
    apt update || echo "setup: the package index could not be brought up to date" >&2
    apt install "$@" || tail -n 20 build/setup.log >&2
  fi
}

# Installs what is missing for the purposes, and prints what is missing still.
obtain() {
  wanted=$(packages_of "$@") || exit 1
  if ! command -v dpkg-query >/dev/null; then
    echo "setup: not a Debian system; taking it that these are here: $wanted" >&2
    return 0
  fi
  # Lists of package names: splitting is meant.
  # shellcheck disable=SC2046,SC2086
  missing=$(missing_packages $wanted)
  [ -n "$missing" ] || return 0
  # shellcheck disable=SC2086
  install_packages $missing
  # shellcheck disable=SC2086
  missing_packages $missing | paste -s -d ' ' -
}

need() {
  lacking=$(obtain "$@") || exit 1
  [ -z "$lacking" ] && return 0
  echo "setup: cannot go on without these Debian packages: $lacking" >&2
  exit 1
}

want() {
  for purpose in "$@"; do
    lacking=$(obtain "$purpose") || exit 1
    [ -z "$lacking" ] || echo "setup: going on without these Debian packages: $lacking" >&2
  done
}
