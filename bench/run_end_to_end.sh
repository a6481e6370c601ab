#!/usr/bin/env bash
# End-to-end benchmark: a workbook of 100 numeric columns by 32767 rows.
#   bench/run_end_to_end.sh [RUNS]
# Builds the release configuration, generates the workbook once (under out/bench/), then times
# with the median of RUNS runs each:
#   floor     unzip -p of the sheet part (inflating alone)
#   read      orvella sheets (reading and parsing the whole workbook)
#   describe  orvella describe --all over every column, results written to a new workbook
# and prints the ratios to the floor and the peak memory of the full run.
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-5}
BUILD=${BUILD_DIR:-build-bench}
cmake -S . -B "$BUILD" -DCMAKE_BUILD_TYPE=Release -DORV_BUILD_TESTS=OFF -DORV_BUILD_BENCH=ON >/dev/null
cmake --build "$BUILD" -j"$(nproc)" --target orvella make_large_workbook >/dev/null

DIR=out/bench
mkdir -p "$DIR"
BOOK=$DIR/large.xlsx
[ -f "$BOOK" ] || "$BUILD"/bench/make_large_workbook "$BOOK" 32767 100

median() { sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }
seconds() {  # seconds of one run of the command
  local start end
  start=$(date +%s.%N); "$@" >/dev/null 2>&1; end=$(date +%s.%N)
  echo "$end - $start" | bc -l
}
timed() { for _ in $(seq "$RUNS"); do seconds "$@"; done | median; }

SHEET_PART=xl/worksheets/sheet1.xml
floor=$(timed unzip -p "$BOOK" "$SHEET_PART")
read=$(timed "$BUILD"/cli/orvella sheets "$BOOK")
describe=$(timed "$BUILD"/cli/orvella describe "$BOOK" --input "Data!A1:CV32767" --all --overwrite -o "$DIR/large-results.xlsx")
xml_bytes=$(unzip -p "$BOOK" "$SHEET_PART" | wc -c)
peak_kb=$( { /usr/bin/time -f "%M" "$BUILD"/cli/orvella describe "$BOOK" --input "Data!A1:CV32767" --all -o "$DIR/large-results.xlsx" >/dev/null; } 2>&1 | tail -1)

printf 'machine   %s, %s cores\n' "$(uname -m)" "$(nproc)"
printf 'workbook  %s (%d bytes; sheet XML %d bytes)\n' "$BOOK" "$(stat -c %s "$BOOK")" "$xml_bytes"
printf 'runs      %d, median seconds\n' "$RUNS"
printf 'floor     %.3f s  (unzip -p %s)\n' "$floor" "$SHEET_PART"
printf 'read      %.3f s  %.2fx floor  (orvella sheets)\n' "$read" "$(echo "$read / $floor" | bc -l)"
printf 'describe  %.3f s  %.2fx floor  (orvella describe --all, written)\n' "$describe" "$(echo "$describe / $floor" | bc -l)"
printf 'peak      %.1f MiB  %.2fx the sheet XML\n' "$(echo "$peak_kb / 1024" | bc -l)" "$(echo "$peak_kb * 1024 / $xml_bytes" | bc -l)"
