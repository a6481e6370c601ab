#!/usr/bin/env bash
# Writes the seed corpus into OUTDIR (default fuzz/corpus-seed under the build folder) with the
# generator built in the fuzz build. Usage: fuzz/make_corpus.sh BUILD_DIR [OUTDIR]
set -euo pipefail
BUILD=${1:?usage: fuzz/make_corpus.sh BUILD_DIR [OUTDIR]}
OUT=${2:-$BUILD/fuzz/corpus-seed}
cmake --build "$BUILD" --target fuzz_make_corpus >/dev/null
rm -rf "$OUT"
"$BUILD/fuzz/fuzz_make_corpus" "$OUT"
echo "seed corpus in $OUT: $(find "$OUT" -type f | wc -l) files, $(du -sk "$OUT" | cut -f1) KB"
