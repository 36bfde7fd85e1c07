# Building a preset; sourced by ./dev and its parts, from the project's root.
# shellcheck shell=sh

# build PRESET [ARGUMENT...]: configures when needed, then builds; ARGUMENT... go to the build.
build() {
  preset=$1
  shift
  made=build/$preset/configured
  if [ -z "$(find "$made" -newer CMakePresets.json 2>/dev/null)" ]; then
    cmake --preset "$preset" && touch "$made" || return
  fi
  cmake --build --preset "$preset" "$@"
}

# have_cross_compiler BITS
have_cross_compiler() {
  case $1 in
    64) command -v x86_64-w64-mingw32-g++-win32 ;;
    32) command -v i686-w64-mingw32-g++-win32 ;;
  esac >/dev/null
}
