#!/usr/bin/env bash
# End-to-end benchmark: a workbook of 100 numeric columns by 32767 rows.
#   bench/run_end_to_end.sh [RUNS]
# Builds the release configuration (BUILD_DIR, default build-bench), generates the workbook once
# (under out/bench/), then runs each command RUNS times (default 5) and takes the medians of its
# wall time and of its CPU time (user + system, both threads):
#   floor     unzip -p of the sheet part (inflating alone)
#   read      orvella sheets (reading and parsing the whole workbook)
#   describe  orvella describe --all over every column, printed only
#   written   the same with the results written to a new workbook
#   tables    frequency --raw of ten columns written to a new workbook: a large result (about
#             1.6 million output cells) rather than a large input
#   convert   soffice --headless --convert-to xlsx of the workbook: the floor of any run on a live
#             office (starting it, opening the workbook, saving it)
#   calc      the written describe with --host calc: the same run on a headless LibreOffice
# and the peak memory (maximum resident set) of the written run. Both office runs start with a
# fresh private profile, as orvella --host calc always does. Then the in-memory runs at full
# sheet height, with textbook arithmetic (the kept rules stop at 32767 observations): a workbook
# of 16 columns by 1,048,575 rows under a row of names (out/bench/full.xlsx), its own floor, and
#   full      describe --all --textbook of every column, written to a new workbook
#   column    frequency --raw --textbook of its first column, written to a new workbook
# with their peak memory. It ends with a Markdown block for the README. On a shared machine the
# wall times depend on the load, which is printed; the CPU times much less so.
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
FULL=$DIR/full.xlsx
[ -f "$FULL" ] || "$BUILD"/bench/make_large_workbook "$FULL" 1048575 16 headers
SHEET_PART=xl/worksheets/sheet1.xml
ORV="$BUILD"/cli/orvella
INPUT=(--input "Data!A1:CV32767" --all)

median() { sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }
# One line per run: wall seconds, CPU seconds (user + system), peak resident KiB.
measure() {
  local i
  for i in $(seq "$RUNS"); do
    /usr/bin/time -f "%e %U %S %M" -o "$DIR/time.txt" "$@" >/dev/null 2>&1
    awk '{printf "%s %.2f %s\n", $1, $2 + $3, $4}' "$DIR/time.txt"
  done
}
# Sets NAME_wall, NAME_cpu and NAME_peak to the medians of RUNS runs of the command.
timed() {
  local name=$1 runs
  shift
  runs=$(measure "$@")
  printf -v "${name}_wall" '%s' "$(cut -d' ' -f1 <<<"$runs" | median)"
  printf -v "${name}_cpu" '%s' "$(cut -d' ' -f2 <<<"$runs" | median)"
  printf -v "${name}_peak" '%s' "$(cut -d' ' -f3 <<<"$runs" | median)"
}
ratio() { echo "$1 / $2" | bc -l; }

load_before=$(cut -d' ' -f1 /proc/loadavg)
timed floor unzip -p "$BOOK" "$SHEET_PART"
timed read "$ORV" sheets "$BOOK"
timed describe "$ORV" describe "$BOOK" "${INPUT[@]}"
timed written "$ORV" describe "$BOOK" "${INPUT[@]}" --overwrite -o "$DIR/large-results.xlsx"
timed tables "$ORV" frequency "$BOOK" --input "Data!A1:J32767" --raw --overwrite -o "$DIR/large-tables.xlsx"
timed convert bench/convert_with_office.sh "$BOOK" "$DIR/converted"
timed calc "$ORV" describe "$BOOK" "${INPUT[@]}" --host calc -o "$DIR/large-calc.xlsx"
timed fullfloor unzip -p "$FULL" "$SHEET_PART"
timed full "$ORV" describe "$FULL" --input "Data!A1:P1048576" --headers --all --textbook --overwrite \
  -o "$DIR/full-results.xlsx"
timed column "$ORV" frequency "$FULL" --input "Data!A1:A1048576" --headers --raw --textbook --overwrite \
  -o "$DIR/full-table.xlsx"
load_after=$(cut -d' ' -f1 /proc/loadavg)
xml_bytes=$(unzip -p "$BOOK" "$SHEET_PART" | wc -c)
full_xml_bytes=$(unzip -p "$FULL" "$SHEET_PART" | wc -c)
cpu_model=$(awk -F': ' '/model name/ {print $2; exit}' /proc/cpuinfo)

row() {  # label, command, name, floor (default: floor)
  local wall="${3}_wall" cpu="${3}_cpu" floorWall="${4:-floor}_wall" floorCpu="${4:-floor}_cpu"
  printf '| %s | `%s` | %.2f s | %.2f× | %.2f s | %.2f× |\n' "$1" "$2" "${!wall}" \
    "$(ratio "${!wall}" "${!floorWall}")" "${!cpu}" "$(ratio "${!cpu}" "${!floorCpu}")"
}

cat <<EOF

Machine: ${cpu_model:-$(uname -m)}, $(nproc) cores, $(uname -sr); load average ${load_before} before
and ${load_after} after the runs. Workbook: \`$BOOK\`, 100 numeric columns by 32,767 rows
($(stat -c %s "$BOOK") bytes; its sheet part inflates to ${xml_bytes} bytes of XML). Medians of
${RUNS} runs each; CPU is user + system time of all threads; the ratios are to the floor.

| step | command | wall | ratio | CPU | ratio |
|---|---|---|---|---|---|
EOF
row "floor: inflate the sheet" "unzip -p large.xlsx $SHEET_PART" floor
row "read the workbook" "orvella sheets large.xlsx" read
row "describe every column" "orvella describe large.xlsx -i Data!A1:CV32767 --all" describe
row "... and write the results" "... --overwrite -o large-results.xlsx" written
row "a large result: ten frequency tables" "orvella frequency large.xlsx -i Data!A1:J32767 --raw -o large-tables.xlsx" tables
printf '\nPeak memory of the written run: %.0f MiB, %.2f× the sheet XML; of the ten frequency tables: %.0f MiB.\n' \
  "$(echo "$written_peak / 1024" | bc -l)" "$(echo "$written_peak * 1024 / $xml_bytes" | bc -l)" \
  "$(echo "$tables_peak / 1024" | bc -l)"

cat <<EOF

On a live office, where the floor is the office opening and saving the workbook (CPU includes
the office's own):

| step | command | wall | ratio | CPU | ratio |
|---|---|---|---|---|---|
EOF
row "office floor: open and save" "soffice --headless --convert-to xlsx large.xlsx" convert convert
row "describe every column on the office, written" "... --all --host calc -o large-calc.xlsx" calc convert

cat <<EOF

At full sheet height: \`$FULL\`, 16 numeric columns by 1,048,575 rows under a row of names
($(stat -c %s "$FULL") bytes; its sheet part inflates to ${full_xml_bytes} bytes of XML), with
textbook arithmetic; the ratios are to this workbook's own floor.

| step | command | wall | ratio | CPU | ratio |
|---|---|---|---|---|---|
EOF
row "floor: inflate the sheet" "unzip -p full.xlsx $SHEET_PART" fullfloor fullfloor
row "describe every column, written" "orvella describe full.xlsx -i Data!A1:P1048576 --headers --all --textbook -o full-results.xlsx" full fullfloor
row "count one column's values, written" "orvella frequency full.xlsx -i Data!A1:A1048576 --headers --raw --textbook -o full-table.xlsx" column fullfloor
printf '\nPeak memory of the described run: %.0f MiB, %.2f× the sheet XML; of the counted column: %.0f MiB.\n' \
  "$(echo "$full_peak / 1024" | bc -l)" "$(echo "$full_peak * 1024 / $full_xml_bytes" | bc -l)" \
  "$(echo "$column_peak / 1024" | bc -l)"
