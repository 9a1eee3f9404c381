#!/usr/bin/env bash
# Builds, makes a real ledger report from the sample database, and opens it. With no display it
# writes pictures of the windows instead. Everything it makes is in build/demo.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh
need_packages $build_packages $run_packages

cmake --preset release -DPAPERWAY_TESTS=OFF >/dev/null
cmake --build --preset release

paperway=build/release/apps/paperway/paperway
demo=build/demo
mkdir -p "$demo"

echo
echo "The sample database: 4,000 lines of a year's sales."
build/release/examples/make_ledger "$demo/ledger.db" 4000
query="SELECT * FROM sales"
"$paperway" columns examples/ledger/columns.csv --db "$demo/ledger.db" --data "$query"

"$paperway" text --db "$demo/ledger.db" --data "$query" --columns examples/ledger/columns.csv \
  --out "$demo/ledger.txt" --title "Sales ledger" --title "Year 2025-26" --title "" --title "" \
  --title "By region and customer" --serial 1 --pitch 136
"$paperway" print "$demo/ledger.txt" --pages 1 --pdf "$demo/page1.pdf"
echo
echo "The report is $demo/ledger.txt, its first page on paper $demo/page1.pdf."

"$paperway" html --db "$demo/ledger.db" --data "$query" --columns examples/ledger/columns.csv \
  --out "$demo/ledger.html" --title "Sales ledger" --title "Year 2025-26" --align center --serial 1
"$paperway" html --salary --db "$demo/ledger.db" --data "$(cat examples/salary/pay.sql)" \
  --columns examples/salary/columns.csv --out "$demo/salary.html" --title "Salaries^" \
  --title "March 2026^" --title-size 14 --number-size 8 --space "&nbsp;" --restart \
  --two-line-total --landscape
"$paperway" convert "$demo/ledger.txt" "$demo/report.html"
"$paperway" convert "$demo/ledger.txt" "$demo/report.xlsx"
echo "As web pages: $demo/ledger.html, salary.html, and the report itself, report.html."

"$paperway" sheet --db "$demo/ledger.db" --data "$query" --columns examples/ledger/columns.csv \
  --out "$demo/ledger.xlsx" --title "Sales ledger" --title "Year 2025-26" --serial 1 --landscape
echo "As a workbook: $demo/ledger.xlsx; made of the text report: report.xlsx."

"$paperway" stickers --db "$demo/ledger.db" --line "{customer}" --line "{region}" --length 24 \
  --columns 3 --data "SELECT DISTINCT customer, region FROM sales ORDER BY customer" \
  --out "$demo/stickers.txt"
echo "A sticker for each customer: $demo/stickers.txt."

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  "$paperway" preview "$demo/ledger.txt"
else
  if [ -z "$("$paperway" printers 2>/dev/null)" ]; then # the panel is to have one to show
    export XDG_CONFIG_HOME=$PWD/$demo/config
    "$paperway" printers add Demo "file://$PWD/$demo/printed.bin"
  fi
  "$paperway" preview "$demo/ledger.txt" --picture "$demo/preview.png"
  "$paperway" stickers --picture "$demo/stickers.png" --do JeweledButton1
  "$paperway" preview "$demo/ledger.txt" --picture "$demo/print.png" --do CmdPrint
  "$paperway" preview "$demo/ledger.txt" --picture "$demo/setting.png" --do Label4
  "$paperway" browse "$demo/ledger.html" --picture "$demo/browser.png"
  echo "There is no display; pictures of the windows: $demo/preview.png, browser.png, print.png, setting.png, stickers.png."
fi
