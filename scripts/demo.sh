#!/usr/bin/env bash
# The main job: installs what is needed, builds, then starts the reference
# validation server on 127.0.0.1 and sends it one validation request with
# the qva tool. Before the server exists it converts a certificate instead.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh release >/dev/null
bin=build/tools
work=$(mktemp -d)
trap 'rm -rf "$work"; [ -n "${server:-}" ] && kill "$server" 2>/dev/null || true' EXIT

openssl req -x509 -newkey rsa:2048 -nodes -keyout "$work/key.pem" -out "$work/cert.pem" \
  -subj "/C=KR/O=Demo/CN=demo user" -days 30 2>/dev/null
"$bin/qva" pem decode cert "$work/cert.pem" "$work/cert.der"
echo "certificate: $(stat -c %s "$work/cert.der") bytes of DER"

if [ -x build/tests/libqvaclient/qva-scripted-server ]; then
  # start_server ARGS...: runs the server on a free port and sets $port.
  start_server() {
    build/tests/libqvaclient/qva-scripted-server --port 0 --idle-timeout 10 "$@" >"$work/server.log" 2>&1 &
    server=$!
    for _ in $(seq 100); do
      port=$(sed -n 's/^listening on 127.0.0.1:\([0-9]*\).*/\1/p' "$work/server.log")
      [ -n "$port" ] && return 0
      sleep 0.05
    done
    echo "the server did not start" >&2
    return 1
  }
  echo "== a validation request the server accepts"
  start_server --count 1
  "$bin/qva" verify 127.0.0.1 "$port" demo-roaming-id CERT "$work/cert.der"
  wait "$server"
  echo "== a registration the server refuses with its own explanation"
  start_server --count 1 --result 17 --detail "certificate is revoked"
  "$bin/qva" register 127.0.0.1 "$port" demo-roaming-id "$work/cert.der" || true
  wait "$server" || true
  server=
else
  "$bin/qva" hex "$work/cert.der" | head -n 4
fi
