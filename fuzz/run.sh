#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs each for a bounded time, one after the other.
# Usage: fuzz/run.sh [SECONDS_PER_TARGET]   (default 13: about 90 s for the seven targets)
# Environment: BUILD_DIR (default build-fuzz), FUZZ_JOBS (parallel builds, default 2).
# The corpus grows in BUILD_DIR/fuzz/corpus/TARGET between runs; a crashing input is saved in
# BUILD_DIR/fuzz/artifacts/ and the script fails, naming it.
set -euo pipefail
cd "$(dirname "$0")/.."
SECONDS_PER_TARGET=${1:-13}
BUILD=${BUILD_DIR:-build-fuzz}
TARGETS=(reference csv xlsx_package xlsx_sheet xlsx_shared_strings xlsx_workbook describe_run)

CC=clang CXX=clang++ cmake -S . -B "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORV_BUILD_FUZZ=ON \
  -DORV_BUILD_TESTS=OFF >/dev/null
cmake --build "$BUILD" --target fuzz_all fuzz_make_corpus -j"${FUZZ_JOBS:-2}" >/dev/null
fuzz/make_corpus.sh "$BUILD" "$BUILD/fuzz/corpus-seed"

ARTIFACTS="$BUILD/fuzz/artifacts"
mkdir -p "$ARTIFACTS"
failed=()
for t in "${TARGETS[@]}"; do
  corpus="$BUILD/fuzz/corpus/$t"
  mkdir -p "$corpus"
  log="$BUILD/fuzz/$t.log"
  echo "fuzz_$t: ${SECONDS_PER_TARGET}s"
  # detect_leaks stays on: a leak is a finding like a crash. -timeout flags an input slower than
  # 10 s as a hang; -rss_limit_mb an input that needs more than 2 GB.
  if ! ASAN_OPTIONS=detect_leaks=1 "$BUILD/fuzz/fuzz_$t" "$corpus" "$BUILD/fuzz/corpus-seed/$t" \
      -max_total_time="$SECONDS_PER_TARGET" -timeout=10 -rss_limit_mb=2048 -max_len=65536 \
      -artifact_prefix="$ARTIFACTS/${t}-" -print_final_stats=1 >"$log" 2>&1; then
    failed+=("$t")
    tail -n 40 "$log"
  fi
  grep -E '^stat::number_of_executed_units|^#[0-9]+.*DONE' "$log" | tail -n 2 || true
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzzing found problems in: ${failed[*]} (inputs in $ARTIFACTS)" >&2
  exit 1
fi
echo "fuzzing: no findings"
