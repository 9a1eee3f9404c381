#!/usr/bin/env bash
# Builds, makes a real ledger report from the sample database, and opens it. With no display it
# writes pictures of the windows instead. Everything it makes is in build/demo.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh
need_packages $build_packages $run_packages

cmake --preset release -DPAPERWAY_TESTS=OFF >/dev/null
cmake --build --preset release

bin=build/release
demo=build/demo
mkdir -p "$demo"
"$bin/examples/make_ledger" "$demo/ledger.db" 4000
query="SELECT * FROM sales"
"$bin/apps/paperway/paperway" columns examples/ledger/columns.csv --db "$demo/ledger.db" --data "$query"
"$bin/apps/paperway/paperway" text --db "$demo/ledger.db" --data "$query" \
  --columns examples/ledger/columns.csv --out "$demo/ledger.txt" \
  --title "Sales ledger" --title "Year 2025-26" --title "" --title "" \
  --title "By region and customer" --serial 1 --pitch 136
echo
echo "The report is in $demo/ledger.txt; it begins:"
head -n 24 "$demo/ledger.txt" | tr -d '\014\015\016\017\022\024\033'
