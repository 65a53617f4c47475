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

if [ -x "$bin/qva-server" ]; then
  port=$(( 20000 + RANDOM % 20000 ))
  "$bin/qva-server" --port "$port" --count 1 &
  server=$!
  sleep 0.3
  "$bin/qva" verify 127.0.0.1 "$port" demo-roaming-id CERT "$work/cert.der"
  wait "$server" || true
  server=
else
  "$bin/qva" hex "$work/cert.der" | head -n 4
fi
