#!/usr/bin/env bash
# The main job: installs what is needed, builds, then runs `qva demo`, which
# makes a demo PKI in a temporary folder, starts qva-server on 127.0.0.1 with
# a free port, asks it about each demo certificate and one registration
# through libqvaclient, and prints the table of expected and received verdicts.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh release >/dev/null
exec build/tools/qva demo
