#!/usr/bin/env bash
# Converts a workbook to .xlsx with a headless LibreOffice of its own, as a fresh private
# profile (removed afterwards), the way orvella --host calc starts its office:
#   bench/convert_with_office.sh BOOK OUTDIR
set -euo pipefail
profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT
soffice -env:UserInstallation="file://$profile" --headless --convert-to xlsx --outdir "$2" "$1"
