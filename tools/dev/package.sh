#!/bin/sh
# Makes what is handed out, into build/package/: a zip for Windows with the servers of both
# bitnesses, and a Debian package of the workbench and the native library.
# The builds native, win64 and win32 must be there.
set -eu
cd "$(dirname "$0")/../.."

version=$(sed -n 's/^project(LibTarvoRdpCI VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
out=$PWD/build/package
name=LibTarvoRdpCI-$version-windows
content=$out/$name

# Windows' own programs read texts with its line ends.
with_windows_line_ends() {
  sed 's/\r*$/\r/' "$1" >"$2"
}

# servers PRESET FOLDER: the products of a Windows build.
servers() {
  mkdir -p "$content/$2"
  for server in LibTarvoRdpCI_2402 LibTarvoCI_2402; do
    cp "build/$1/$server.dll" "build/$1/$server.tlb" "build/$1/$server.manifest" "$content/$2"
  done
}

windows_zip() {
  rm -rf "$content" "$content.zip"
  servers win64 x64
  servers win32 x86
  mkdir -p "$content/include"
  cp build/win64/interfaces/LibTarvoCI_2402.h build/win64/interfaces/LibTarvoRdpCI_2402.h \
    build/win64/interfaces/LibTarvoCI_2402_interfaces.h tools/interfaces/prelude.h \
    "$content/include"
  for script in tools/package/*.cmd; do
    with_windows_line_ends "$script" "$content/$(basename "$script")"
  done
  with_windows_line_ends tools/package/README.txt "$content/README.txt"
  cp -R docs samples "$content"
  mkdir -p "$content/profiles"
  cp tools/tarvordp/profiles/*.json "$content/profiles"
  find "$content" -name __pycache__ -prune -exec rm -rf {} +
  (cd "$out" && cmake -E tar cf "$name.zip" --format=zip "$name")
}

debian_package() {
  rm -f "$out"/*.deb
  cpack -G DEB --config build/native/CPackConfig.cmake -B "$out/deb" >"$out/cpack.log" 2>&1 ||
    { cat "$out/cpack.log" >&2; return 1; }
  mv "$out"/deb/*.deb "$out"
  rm -rf "$out/deb"
}

mkdir -p "$out"
windows_zip
debian_package
ls -l "$out"/*.zip "$out"/*.deb
