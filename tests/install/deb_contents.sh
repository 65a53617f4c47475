#!/usr/bin/env bash
# Makes the Debian package with CPack and checks it with dpkg-deb: its
# version and architecture, the files a user needs (the shared library under
# its soname), programs that run from the unpacked tree, and a Depends field
# that names the package of every system library the binaries load.
#
#   deb_contents.sh CPACK_CONFIG VERSION
set -euo pipefail
config=$1 version=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cpack -G DEB --config "$config" -B "$work" >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; fail "cpack"; }
debs=("$work"/*.deb)
[ "${#debs[@]}" = 1 ] && [ -f "${debs[0]}" ] || fail "expected one package, got: ${debs[*]}"
deb=${debs[0]}

[ "$(dpkg-deb -f "$deb" Version)" = "$version" ] || fail "Version: $(dpkg-deb -f "$deb" Version)"
[ "$(dpkg-deb -f "$deb" Architecture)" = "$(dpkg --print-architecture)" ] || fail "Architecture"

dpkg-deb -x "$deb" "$work/root"
usr=$work/root/usr
lib=$(dirname "$(find "$usr" -name libqvaclient.a)")
[ -d "$lib" ] || fail "no static library"
for f in bin/qva bin/qva-server include/qva/qva.h include/qva/zenalib/base/ByteString.h \
  include/qva/zenalib/ZENALib/QSProcess/PCertUtil.h share/man/man1/qva.1.gz share/man/man1/qva-server.1.gz; do
  [ -s "$usr/$f" ] || fail "missing /usr/$f"
done
for f in libqvaclient.so pkgconfig/qvaclient.pc cmake/LibQVAClient/LibQVAClientConfig.cmake; do
  [ -e "$lib/$f" ] || fail "missing $lib/$f"
done
soname=$(objdump -p "$lib/libqvaclient.so" | awk '$1 == "SONAME" {print $2}')
[ -n "$soname" ] && [ -f "$lib/$soname" ] || fail "no file for the soname '$soname'"
gzip -t "$usr/share/man/man1/qva.1.gz" || fail "manual page is not gzip"

export LD_LIBRARY_PATH=$lib
[ "$("$usr/bin/qva" --version)" = "qva $version" ] || fail "packaged qva does not run"

# Every system library a packaged binary names as NEEDED comes from a package
# the Depends field names (what those libraries load in turn is their own
# packages' Depends).
depends=$(dpkg-deb -f "$deb" Depends)
tr ',|' '\n\n' <<<"$depends" | sed 's/(.*//; s/ //g' >"$work/depends"
for bin in "$usr/bin/qva" "$usr/bin/qva-server" "$lib/$soname"; do
  needed=$(objdump -p "$bin" | awk '$1 == "NEEDED" {print $2}' | tr '\n' ' ')
  ldd "$bin" | awk -v needed=" $needed" '$3 ~ /^\// && index(needed, " " $1 " ") {print $3}'
done | sort -u | grep -v "^$work/" >"$work/system_libs"
[ -s "$work/system_libs" ] || fail "ldd found no system library"
grep -q libcrypto "$work/system_libs" || fail "libcrypto not among the loaded libraries"
while read -r so; do
  pkg=$(dpkg -S "$(readlink -f "$so")" 2>/dev/null | head -n1 | cut -d: -f1) ||
    pkg=$(dpkg -S "$so" | head -n1 | cut -d: -f1)
  [ -n "$pkg" ] || fail "no package owns $so"
  grep -qxF "$pkg" "$work/depends" || fail "Depends ($depends) lacks $pkg for $so"
done <"$work/system_libs"
echo "$(basename "$deb"): Depends: $depends"
