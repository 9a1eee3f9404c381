#!/usr/bin/env bash
# Times the two exports of tables against a plain C writer of the same bytes, and the conversion of a
# report file, in the same run, alternating; of each the round with the least CPU time counts.
#
#   bench/run_html.sh [BUILD_DIR]        BUILD_DIR is made by the preset "bench" when it is not given
#
# ROUNDS=5 rounds; SIZES="100000 1000000" rows; REPORT_ROWS=4000000 of the report that is converted.
set -euo pipefail
cd "$(dirname "$0")/.."
. bench/lib.sh

rounds=${ROUNDS:-5}
sizes=${SIZES:-100000 1000000}
report_rows=${REPORT_ROWS:-4000000}
build_bench "${1-}" paperway make_ledger c_html measure
mkdir -p "$data"/{paperway,plain}/{file,null}

compare() { # table|salary ROWS
  local file kind=$1 rows=$2 options=(--align center)
  [ "$1" = table ] || options=(--salary)
  file=$(database "$2")
  write() { # NAME: to the files of that name
    measured "plain-$1" "$build/bench/c_html" "$kind" "$file" "$data/plain/$1/plain.html" "$title" \
      "$subtitle"
    measured "paperway-$1" "$paperway" html "${options[@]}" --db "$file" --data "$statement" \
      --columns examples/ledger/columns.csv --out "$data/paperway/$1/plain.html" --title "$title" \
      --title "$subtitle" --serial 1
  }
  rm -f "$data"/*.times
  for ((i = 0; i < rounds; ++i)); do
    write file
    write null
  done
  cmp "$data/plain/file/plain.html" "$data/paperway/file/plain.html"
  for target in null file; do
    echo "$1 $2 $target $(best plain-$target) $(best paperway-$target)" | awk '{
      printf "%-6s  %9d  %s  %7.3f %7.3f  %7.3f %7.3f     %5.2f  %8.2f\n",
        $1, $2, $3, $5, $4, $8, $7, $8 / $5, $9 / 1024 }'
  done
  rm -f "$data"/*/file/plain.html
}

ln -sf /dev/null "$data/plain/null/plain.html"
ln -sf /dev/null "$data/paperway/null/plain.html"
echo "CPU (user and system) and wall seconds, to nowhere and to a file; the documents are the same byte"
echo "for byte. The file of paperway replaces an earlier one when it is whole, and on the disk."
echo "                           plain C writer      paperway     paperway  paperway"
echo "export       rows  to        cpu    wall      cpu    wall     / plain        MB"
for export in table salary; do
  for size in $sizes; do compare $export "$size"; done
done

echo
echo "Conversion of a report file"
"$paperway" text --db "$(database "$report_rows")" --data "$statement" \
  --columns examples/ledger/columns.csv --out "$data/report.txt" --title "$title" \
  --title "$subtitle" --lines 60 --serial 1 --pitch 136
rm -f "$data"/*.times
ln -sf /dev/null "$data/null.html" # the speed of a disk is another matter
for ((i = 0; i < rounds; ++i)); do
  measured convert "$paperway" convert "$data/report.txt" "$data/null.html"
done
echo "$(stat -c %s "$data/report.txt") $(best convert)" | awk '{
  printf "%.0f MB: %.3f s CPU, %.0f MB/s, %.2f MB of memory\n", $1 / 1e6, $3, $1 / 1e6 / $3, $4 / 1024 }'
rm -f "$data/report.txt"
