#!/usr/bin/env bash
# Times workbooks of the ledger against libxlsxwriter writing the same cells row by row, in the same
# run, alternating; of each the round with the least CPU time counts.
#
#   bench/run_sheet.sh [BUILD_DIR]       BUILD_DIR is made by the preset "bench" when it is not given
#
# ROUNDS=3 rounds; SIZES="100000 1000000" rows of .xlsx; OLD_ROWS=65000 of .xls.
set -euo pipefail
cd "$(dirname "$0")/.."
. bench/lib.sh

rounds=${ROUNDS:-3}
build_bench "${1-}" paperway make_ledger c_sheet measure

compare() { # END ROWS
  local file
  file=$(database "$2")
  rm -f "$data"/*.times
  for ((i = 0; i < rounds; ++i)); do
    measured plain "$build/bench/c_sheet" "$file" "$data/plain.xlsx" "$title" "$subtitle"
    measured paperway "$paperway" sheet --db "$file" --data "$statement" \
      --columns examples/ledger/columns.csv --out "$data/book.$1" --title "$title" \
      --title "$subtitle" --serial 1
  done
  echo ".$1 $2 $(best plain) $(best paperway) $(stat -c %s "$data/plain.xlsx" "$data/book.$1" | xargs)" |
    awk '{ printf "%-5s  %9d  %7.3f %7.3f  %7.3f %7.3f     %5.2f  %8.2f %8.2f  %5.1f  %5.1f\n",
      $1, $2, $4, $3, $7, $6, $7 / $4, $5 / 1024, $8 / 1024, $9 / 1e6, $10 / 1e6 }'
  rm -f "$data/plain.xlsx" "$data/book.$1"
}

echo "CPU (user and system) and wall seconds, peak memory and the files in MB"
echo "                 libxlsxwriter      paperway     paperway      memory          files"
echo "end         rows      cpu    wall      cpu    wall     / lib   lib      paperway   lib  paperway"
for size in ${SIZES:-100000 1000000}; do compare xlsx "$size"; done
compare xls "${OLD_ROWS:-65000}"
