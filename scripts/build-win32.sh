#!/usr/bin/env bash
# Cross-builds the 32-bit Windows DLL with mingw-w64 (i686) into build-win32/.
# Debian ships no OpenSSL for mingw, so a static libcrypto is cross-built from
# the upstream tarball of Debian's openssl source package, the same version as
# the installed libssl-dev. It is kept outside the clone, under
# ${XDG_CACHE_HOME:-~/.cache}/qva-mingw-openssl/VERSION, and built again only
# when that version changes (QVA_MINGW_OPENSSL names another prefix).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

QVA_WITH_MINGW=1 scripts/install-deps.sh
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO=sudo

version=$(dpkg-query -W -f='${source:Version}' libssl-dev)
prefix=${QVA_MINGW_OPENSSL:-${XDG_CACHE_HOME:-$HOME/.cache}/qva-mingw-openssl/$version}

if [ ! -f "$prefix/lib/libcrypto.a" ]; then
  echo "cross-building libcrypto $version into $prefix (once per version)"
  src=/etc/apt/sources.list.d/debian-src.sources
  if [ ! -f "$src" ]; then
    sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources | $SUDO tee "$src" >/dev/null
    # An index of another suite or architecture may be mid-sync; the source
    # index needed here is checked by the download below.
    $SUDO apt-get update -qq || echo "apt-get update reported errors; going on with the indexes it got" >&2
  fi
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  # Only the upstream tarball is needed; Debian's patch files may be missing.
  (cd "$work" && apt-get source --download-only -qq "openssl=$version" >/dev/null 2>&1 || true)
  tarball=$(ls "$work"/openssl_*.orig.tar.gz 2>/dev/null | head -n 1)
  if [ -z "$tarball" ]; then
    echo "could not download the openssl $version source" >&2
    exit 1
  fi
  tar -xzf "$tarball" -C "$work"
  cd "$work"/openssl-*/
  ./Configure mingw no-shared no-tests no-module --cross-compile-prefix=i686-w64-mingw32- >/dev/null
  # libcrypto alone (no libssl); the compiler's notes on openssl's own
  # sources go to a log shown only when the build fails.
  if ! make -j"$(nproc)" build_generated libcrypto.a >"$work/build.log" 2>&1; then
    tail -n 40 "$work/build.log" >&2
    exit 1
  fi
  rm -rf "$prefix.tmp"
  mkdir -p "$prefix.tmp/lib" "$prefix.tmp/include"
  cp libcrypto.a "$prefix.tmp/lib/"
  cp -R include/openssl "$prefix.tmp/include/"
  # Published under its final name only when complete.
  rm -rf "$prefix"
  mv "$prefix.tmp" "$prefix"
  cd "$root"
fi
cmake -G Ninja -S . -B build-win32 -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-i686.cmake -DQVA_MINGW_OPENSSL="$prefix" >/dev/null
ninja -C build-win32 -j"${QVA_JOBS:-$(nproc)}" "$@"
