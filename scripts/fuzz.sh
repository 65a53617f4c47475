#!/usr/bin/env bash
# Runs each libFuzzer target (built by the sanitizer build) for a while:
#   scripts/fuzz.sh [seconds-per-target] [target...]
set -euo pipefail
cd "$(dirname "$0")/.."

root=$(pwd)
seconds=${1:-30}
shift || true
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for src in fuzz/*.cpp; do targets+=("$(basename "$src" .cpp)"); done
fi
if [ ! -f build-sanitize/build.ninja ]; then
  cmake -G Ninja -S . -B build-sanitize -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQVA_SANITIZE=ON -DQVA_FUZZ=ON \
    -DQVA_BUILD_BENCH=OFF -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ >/dev/null
fi
ninja -C build-sanitize "${targets[@]/#/fuzz/}" >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for t in "${targets[@]}"; do
  corpus="$work/$t"
  mkdir -p "$corpus"
  seeds=()
  [ -d "fuzz/corpus/$t" ] && seeds=("fuzz/corpus/$t")
  echo "== $t: ${seconds}s"
  # A crash or sanitizer report ends the run with a non-zero status.
  status=0
  (cd "$work" && "$root/build-sanitize/fuzz/$t" -max_total_time="$seconds" -print_final_stats=1 \
      "$corpus" "${seeds[@]/#/$root/}") >"$work/$t.log" 2>&1 || status=$?
  grep -E '^stat::number_of_executed_units|SUMMARY|ERROR' "$work/$t.log" || true
  if [ "$status" -ne 0 ]; then
    tail -n 60 "$work/$t.log"
    exit "$status"
  fi
done
