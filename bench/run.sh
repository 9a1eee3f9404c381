#!/usr/bin/env bash
# Times the ledger report against a plain C writer of the same bytes, on the same data in the same
# run, alternating; of each the round with the least CPU time counts.
#
#   bench/run.sh [BUILD_DIR]        BUILD_DIR is made by the preset "bench" when it is not given
#
# ROUNDS=5 rounds; SIZES="100000 1000000" rows; MEMORY_SIZES="100000 5000000" rows.
set -euo pipefail
cd "$(dirname "$0")/.."

rounds=${ROUNDS:-5}
sizes=${SIZES:-100000 1000000}
memory_sizes=${MEMORY_SIZES-100000 5000000}
title="Sales ledger"
subtitle="1 April 2025 to 31 March 2026"
statement="SELECT * FROM sales ORDER BY rowid"

if [ $# -gt 0 ]; then
  build=$(cd "$1" && pwd)
else
  build=$PWD/build/bench
  cmake --preset bench >&2
fi
cmake --build "$build" --target paperway make_ledger c_writer measure bench_memory >&2
data=$build/bench-data
mkdir -p "$data"

database() {
  local file=$data/ledger-$1.db
  if [ ! -e "$file" ] || [ "$build/examples/make_ledger" -nt "$file" ]; then
    "$build/examples/make_ledger" "$file" "$1"
  fi
  cat "$file" >/dev/null # into the page cache
  echo "$file"
}

paperway_text() { # NAME DATABASE REPORT
  measured "$1" "$build/apps/paperway/paperway" text --db "$2" --data "$statement" \
    --columns examples/ledger/columns.csv --out "$3" --title "$title" --title "$subtitle" \
    --lines 60 --serial 1 --pitch 136
}

measured() { # NAME COMMAND...
  "$build/bench/measure" "${@:2}" | grep -E '^[0-9.]+ [0-9.]+ [0-9]+$' >>"$data/$1.times"
}

best() { sort -n -k 2 "$data/$1.times" | head -n 1; }

compare() { # ROWS
  local file report=$data/paperway.txt plain=$data/plain.txt
  file=$(database "$1")
  rm -f "$data"/*.times
  for ((i = 0; i < rounds; ++i)); do
    measured plain "$build/bench/c_writer" "$file" "$plain" "$title" "$subtitle"
    paperway_text paperway "$file" "$report"
    measured reading "$build/bench/c_writer" "$file"
  done
  cmp "$plain" "$report"
  rm -f "$plain" "$report"
  echo "$1 $(best plain) $(best paperway) $(best reading)" | awk '{
    printf "%9d  %7.3f %7.3f  %7.3f %7.3f  %7.3f     %5.2f    %5.2f    %6.2f\n",
      $1, $3, $2, $6, $5, $9, $6 / $3, $9 / $3, $1 / $6 / 1e6 }'
}

echo "CPU (user and system) and wall seconds; the reports are the same byte for byte"
echo "           plain C writer      paperway    stepping  paperway  stepping million"
echo "     rows      cpu    wall      cpu    wall    alone     / plain  / plain    rows/s"
for size in $sizes; do compare "$size"; done

if [ -n "$memory_sizes" ]; then
  echo
  echo "Peak memory"
  for size in $memory_sizes; do
    rm -f "$data"/*.times
    paperway_text memory "$(database "$size")" /dev/null
    best memory | awk -v rows="$size" '{ printf "%9d rows  %6.2f MB\n", rows, $3 / 1024 }'
  done
fi

echo
"$build/bench/bench_memory" "$(database 1000000)"
