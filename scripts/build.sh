#!/usr/bin/env bash
# Configures and builds one flavour: release (default, in build/) or
# sanitize (clang with AddressSanitizer + UndefinedBehaviorSanitizer, in
# build-sanitize/; the same tree also builds the libFuzzer targets).
set -euo pipefail
cd "$(dirname "$0")/.."

flavour=${1:-release}
case "$flavour" in
  release)  dir=build;          opts=(-DCMAKE_BUILD_TYPE=Release) ;;
  sanitize) dir=build-sanitize
            opts=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DQVA_SANITIZE=ON -DQVA_FUZZ=ON -DQVA_BUILD_BENCH=OFF
                  -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++) ;;
  *) echo "usage: $0 [release|sanitize]" >&2; exit 2 ;;
esac
cmake -G Ninja -S . -B "$dir" "${opts[@]}" >/dev/null
ninja -C "$dir"
