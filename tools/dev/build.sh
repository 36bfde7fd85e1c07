# Building a preset; sourced by ./dev and its parts, from the project's root.
# shellcheck shell=sh

# What was compiled once is kept, for every clone: the same source under the same options is not
# compiled again.  Paths below the project count as relative ones, so the clone's place is no matter.
export CCACHE_DIR="${CCACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/libtarvordp/compiled}"
export CCACHE_BASEDIR="$PWD"
export CCACHE_NOHASHDIR=1
# Precompiled headers need the first two; a fresh clone's files are all younger than the cache.
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
export CCACHE_MAXSIZE="${CCACHE_MAXSIZE:-2G}"
if command -v ccache >/dev/null; then
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

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
