#!/usr/bin/env bash
# Times stickers of three lines, one for each row, against a plain C writer of the same bytes and
# against the text report of the same rows, in the same run, alternating; of each the round with the
# least CPU time counts.
#
#   bench/run_stickers.sh [BUILD_DIR]    BUILD_DIR is made by the preset "bench" when it is not given
#
# ROUNDS=5 rounds; SIZES="100000 1000000" rows, whose last row of stickers is a whole one.
set -euo pipefail
cd "$(dirname "$0")/.."
. bench/lib.sh

rounds=${ROUNDS:-5}
build_bench "${1-}" paperway make_ledger c_stickers measure

compare() { # ROWS
  local file
  file=$(database "$1")
  rm -f "$data"/*.times
  for ((i = 0; i < rounds; ++i)); do
    measured plain "$build/bench/c_stickers" "$file" "$data/plain.txt"
    measured paperway "$paperway" stickers --db "$file" --data "$statement" --line "{customer}" \
      --line "{item}" --line "{amount:#,##0.00}" --out "$data/stickers.txt"
    measured report "$paperway" text --db "$file" --data "$statement" \
      --columns examples/ledger/columns.csv --out "$data/report.txt" --serial 1
  done
  cmp "$data/plain.txt" "$data/stickers.txt"
  echo "$1 $(best plain) $(best paperway) $(best report)" |
    awk '{ printf "%9d  %7.3f %7.3f  %7.3f %7.3f     %5.2f  %8.2f     %7.3f\n",
      $1, $3, $2, $6, $5, $6 / $3, $7 / 1024, $9 }'
  rm -f "$data"/{plain,stickers,report}.txt
}

echo "CPU (user and system) and wall seconds; the sheets are the same byte for byte"
echo "           plain C writer      paperway     paperway  paperway  text report"
echo "     rows      cpu    wall      cpu    wall     / plain        MB          cpu"
for size in ${SIZES:-100000 1000000}; do compare "$size"; done
