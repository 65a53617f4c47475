#!/usr/bin/env bash
# The whole test suite: installs what is missing, builds (release by
# default, or the sanitizer build with "sanitize") and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."

flavour=${1:-release}
scripts/install-deps.sh
scripts/build.sh "$flavour"
dir=build
[ "$flavour" = sanitize ] && dir=build-sanitize
cd "$dir"
ctest --output-on-failure -j "$(nproc)"
