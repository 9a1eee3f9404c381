#!/usr/bin/env bash
# Times reading all rows by ODBC from SQLite against a bare loop of SQLFetch, on the same data in the
# same run, alternating; of each the round with the least CPU time counts.
#
#   bench/run_odbc.sh [BUILD_DIR]   BUILD_DIR is made by the preset "bench" when it is not given
#
# ROUNDS=5 rounds; SIZES="100000 1000000" rows.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/bench}
[ $# -gt 0 ] || cmake --preset bench -DPAPERWAY_DESKTOP=OFF >/dev/null
cmake --build "$build" --target make_ledger measure bench_odbc >&2
data=$(cd "$build" && pwd)/bench-data
mkdir -p "$data"

measured() { # NAME DATABASE
  "$build/bench/measure" "$build/bench/bench_odbc" "$1" "Driver=SQLite3;Database=$2;StepAPI=1" \
    "SELECT * FROM sales" 2>"$data/$1.sums" >>"$data/$1.times"
}

best() { sort -n -k 2 "$data/$1.times" | head -n 1; }

echo "CPU seconds and peak memory of reading rows of 8 columns by ODBC, SQLite with StepAPI=1"
echo "     rows   bare loop   recordset   ratio   us/row   bare MB   recordset MB"
for size in ${SIZES:-100000 1000000}; do
  file=$data/ledger-$size.db
  [ -e "$file" ] || "$build/examples/make_ledger" "$file" "$size"
  rm -f "$data"/{bare,recordset}.times
  for ((i = 0; i < ${ROUNDS:-5}; ++i)); do
    measured bare "$file"
    measured recordset "$file"
  done
  cmp "$data/bare.sums" "$data/recordset.sums"
  echo "$size $(best bare) $(best recordset)" | awk '{
    printf "%9d  %10.3f  %10.3f  %6.2f  %7.2f  %8.1f  %13.1f\n",
      $1, $3, $6, $6 / $3, $6 / $1 * 1e6, $4 / 1024, $7 / 1024 }'
done
