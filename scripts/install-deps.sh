#!/usr/bin/env bash
# Installs every package the build, tests, benchmarks and fuzzers need
# (Debian 12). Quiet and quick when everything is already there.
set -euo pipefail

packages=(
  cmake ninja-build g++ clang libclang-rt-14-dev ccache python3
  libssl-dev openssl libgtest-dev libgmock-dev libbenchmark-dev
  rhash binutils libc-bin
  pkg-config dpkg-dev file
  libasio-dev libcli11-dev libsqlite3-dev
  libpq-dev postgresql
  python3-pip python3-setuptools python3-wheel
)
if [ "${QVA_WITH_MINGW:-0}" = 1 ]; then
  packages+=(g++-mingw-w64-i686-posix)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO=sudo
echo "installing: ${missing[*]}"
# One stale index (the i386 security suite can lag once wine's architecture is
# added) must not stop the install from the lists that did update.
$SUDO apt-get update -qq || echo "apt-get update reported errors; installing from the lists at hand" >&2
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
