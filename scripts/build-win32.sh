#!/usr/bin/env bash
# Cross-builds the 32-bit Windows DLL with mingw-w64 (i686) into build-win32/.
# Debian ships no OpenSSL for mingw, so the first run cross-builds a static
# libcrypto from Debian's openssl source package into /opt/qva-mingw-openssl.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
prefix=${QVA_MINGW_OPENSSL:-/opt/qva-mingw-openssl}

QVA_WITH_MINGW=1 scripts/install-deps.sh
if [ ! -f "$prefix/lib/libcrypto.a" ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO=sudo
  src=/etc/apt/sources.list.d/debian-src.sources
  if [ ! -f "$src" ]; then
    sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources | $SUDO tee "$src" >/dev/null
    $SUDO apt-get update -qq
  fi
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  # Only the upstream tarball is needed; Debian's patch files may be missing.
  (cd "$work" && apt-get source --download-only -qq openssl >/dev/null 2>&1 || true)
  tarball=$(ls "$work"/openssl_*.orig.tar.gz | head -n 1)
  tar -xzf "$tarball" -C "$work"
  cd "$work"/openssl-*/
  ./Configure mingw no-shared no-tests no-module --cross-compile-prefix=i686-w64-mingw32- --prefix="$prefix" >/dev/null
  make -j"$(nproc)" build_libs >/dev/null
  $SUDO make install_dev >/dev/null
  cd "$root"
fi
cmake -G Ninja -S . -B build-win32 -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-i686.cmake -DQVA_MINGW_OPENSSL="$prefix" >/dev/null
ninja -C build-win32
