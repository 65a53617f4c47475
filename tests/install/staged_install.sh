#!/usr/bin/env bash
# Installs the build tree into a temporary prefix and uses it as a user
# would: every installed header compiles with only that prefix on the include
# path; examples/verify.c builds through pkg-config and through the CMake
# package (shared and static); each build runs against a port nobody listens
# on and must print what the in-tree example prints; the programs, the
# pkg-config file and the package all report the project version.
#
#   staged_install.sh BUILD_DIR SOURCE_DIR VERSION IN_TREE_EXAMPLE
set -euo pipefail
build=$1 src=$2 version=$3 example=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name qvaclient.pc)")/..
export LD_LIBRARY_PATH=$libdir

# Every installed header, alone on the include path.
inc=$prefix/include
{
  find "$inc" -name '*.h' | sort | sed "s|^$inc/qva/zenalib/|#include \"|; s|^$inc/|#include \"|; s|\$|\"|"
  echo 'int main() { return 0; }'
} >"$work/all_headers.cpp"
[ "$(grep -c '^#include' "$work/all_headers.cpp")" -gt 100 ] || fail "toolkit headers missing from $inc"
c++ -std=c++17 -Wall -Wextra -Werror -fsyntax-only -I"$inc" -I"$inc/qva/zenalib" "$work/all_headers.cpp" ||
  fail "installed headers do not compile on their own"
cc -std=c99 -Wall -Wextra -pedantic -Werror -fsyntax-only -I"$inc" -x c - <<<'#include "qva/qva.h"' ||
  fail "qva.h is not C99"

# The example through pkg-config.
export PKG_CONFIG_PATH=$libdir/pkgconfig
[ -f "$(pkg-config --variable=toolkit_includedir qvaclient)/base/ByteString.h" ] || fail "toolkit_includedir"
# shellcheck disable=SC2046
cc -Wall -Wextra -Werror -o "$work/verify_pc" "$src/examples/verify.c" $(pkg-config --cflags --libs qvaclient)

# The example through find_package.
cmake -S "$src/tests/install/consumer" -B "$work/consumer" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_PREFIX_PATH="$prefix" -DVERIFY_SOURCE="$src/examples/verify.c" >/dev/null
cmake --build "$work/consumer" >/dev/null

# Nothing listens on port 1: every build fails to connect, as the in-tree one does.
echo data >"$work/data"
args=(127.0.0.1 1 user01 item "$work/data")
"$example" "${args[@]}" >"$work/expected" && fail "in-tree example succeeded without a server"
head -n1 "$work/expected" | grep -qx 'result: 155' || fail "in-tree example: $(head -n1 "$work/expected")"
for exe in verify_pc consumer/verify_shared consumer/verify_static; do
  rc=0
  "$work/$exe" "${args[@]}" >"$work/out" || rc=$?
  [ "$rc" = 1 ] || fail "$exe exited with $rc"
  cmp -s "$work/expected" "$work/out" || fail "$exe printed: $(head -n1 "$work/out")"
done
ldd "$work/consumer/verify_static" | grep -q libqvaclient && fail "verify_static uses the shared library"

# The toolkit program agrees with openssl on a certificate's serial number and digest.
cert=$src/tests/data/pkix/x509/certs/access-rsa1024.der
"$work/consumer/toolkit" "$cert" >"$work/toolkit" || fail "toolkit program failed on $cert"
ours=$(sed -n 's/^serial=0*//p' "$work/toolkit")
theirs=$(openssl x509 -inform DER -in "$cert" -noout -serial | sed 's/^serial=0*//')
[ -n "$ours" ] && [ "$ours" = "$theirs" ] || fail "serial $ours, openssl says $theirs"
ours=$(sed -n 's/^sha256=//p' "$work/toolkit")
theirs=$(openssl dgst -sha256 -r "$cert" | cut -d' ' -f1)
[ "$ours" = "${theirs^^}" ] || fail "SHA-256 $ours, openssl says $theirs"

# One version everywhere.
[ "$(pkg-config --modversion qvaclient)" = "$version" ] || fail "qvaclient.pc: $(pkg-config --modversion qvaclient)"
[ "$(cat "$work/consumer/package-version.txt")" = "$version" ] || fail "package version"
[ "$("$prefix/bin/qva" --version)" = "qva $version" ] || fail "qva --version: $("$prefix/bin/qva" --version)"
if [ -x "$prefix/bin/qva-server" ]; then
  [ "$("$prefix/bin/qva-server" --version)" = "qva-server $version" ] || fail "qva-server --version"
fi
# Each manual page names every command and option its program's --help lists.
for prog in qva qva-server; do
  [ -x "$prefix/bin/$prog" ] || continue
  page=$(find "$prefix" -name "$prog.1*" -path '*man1*')
  [ -n "$page" ] || fail "no manual page for $prog"
  man=$( (gzip -dc "$page" 2>/dev/null || cat "$page") | sed 's/\\-/-/g')
  help=$("$prefix/bin/$prog" --help) || fail "$prog --help failed"
  words=$(grep -oE -- '--[a-z-]+' <<<"$help"; awk -v p="$prog" '{ w = ($1 == "usage:") ? $3 : $2; if (w ~ /^[a-z0-9]+$/) print p " " w }' <<<"$help")
  [ -n "$words" ] || fail "$prog --help lists nothing"
  while read -r w; do
    grep -qF -- "$w" <<<"$man" || fail "manual page of $prog lacks '$w'"
  done <<<"$words"
done
echo "staged install at $prefix served pkg-config and find_package"
