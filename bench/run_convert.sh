#!/usr/bin/env bash
# Times the conversion of a text report of 300 MB: to comma-separated values, and to a workbook
# against "paperway sheet", which writes a workbook of the same rows from the database, in the same
# run, alternating; of each the round with the least CPU time counts.
#
#   bench/run_convert.sh [BUILD_DIR]     BUILD_DIR is made by the preset "bench" when it is not given
#
# ROUNDS=3 rounds; ROWS=900000.
set -euo pipefail
cd "$(dirname "$0")/.."
. bench/lib.sh

rounds=${ROUNDS:-3}
rows=${ROWS:-900000}
build_bench "${1-}" paperway make_ledger measure
file=$(database "$rows")
wide=$data/wide.csv # as wide as a report of that size is
sed 's/^customer,Customer,25/customer,Customer,105/; s/^item,Item,26/item,Item,110/' \
  examples/ledger/columns.csv >"$wide"
same=$data/same.csv # with the columns that the groups become
sed '1{p
s/.*/region,Group 1,24,0,T,L,,N,N,,,N,N,N,,Arial Narrow\ncustomer,Group 2,24,0,T,L,,N,N,,,N,N,N,,Arial Narrow/
}' "$wide" >"$same"
report=$data/wide.txt
"$paperway" text --db "$file" --data "$statement" --columns "$wide" --out "$report" --serial 1

rm -f "$data"/*.times
for ((i = 0; i < rounds; ++i)); do
  measured csv "$paperway" convert "$report" "$data/out.csv"
  measured xlsx "$paperway" convert "$report" "$data/out.xlsx"
  measured sheet "$paperway" sheet --db "$file" --data "$statement" --columns "$same" \
    --out "$data/sheet.xlsx" --serial 1
done

bytes=$(stat -c %s "$report")
echo "A report of $((bytes / 1000000)) MB and $rows rows; CPU (user and system) and wall seconds, peak memory"
echo "                       cpu    wall   MB/s     memory"
for name in csv xlsx sheet; do
  best "$name" | awk -v name="$name" -v bytes="$bytes" \
    '{ printf "%-18s %7.3f %7.3f  %5.0f  %6.2f MB\n", name, $2, $1, bytes / 1e6 / $2, $3 / 1024 }'
done
echo "xlsx / sheet: $(best xlsx | cut -d ' ' -f 2) / $(best sheet | cut -d ' ' -f 2)" |
  awk '{ printf "%s %.2f\n", $0, $4 / $6 }'
rm -f "$report" "$data"/out.* "$data/sheet.xlsx"
