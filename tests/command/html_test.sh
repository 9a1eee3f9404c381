#!/usr/bin/env bash
# The commands "html" and "convert", as a user types them.
. "$(dirname "$0")/lib.sh"
columns=$3

"$make_ledger" ledger.db 400
sales="SELECT * FROM sales"
html() { "$paperway" html --db ledger.db --data "$sales" --columns "$columns" "$@"; }

# A file and standard output give the same bytes.
html --out a.html --title Sales --title-font Arial --align center --serial 1 || fail "plain run"
html --out - --title Sales --title-font Arial --align center --serial 1 | cat >b.html
same a.html b.html
[ "$(grep -c 'page-break-after' a.html)" -gt 5 ] || fail "pages"
grep -q "^<p align='center'><font face='Arial'><b>Sales</b></font></p>" a.html || fail "title"
grep -q "<td align='right'>  400&nbsp;&nbsp;</td>" a.html || fail "numbers"
html --out wide.html --landscape || fail "landscape"
[ "$(grep -c 'page-break-after' wide.html)" -gt "$(grep -c 'page-break-after' a.html)" ] ||
  fail "landscape pages are shorter"

salary() { html --salary "$@"; }
salary --out s.html --title "Pay^" --title-size 14 --restart --page-break inner --top-margin 2 \
  --left-margin 1 --space "&nbsp;" --two-line-total --fixed-row 20 || fail "salary"
grep -q "<p align='center'><Q class=at1><b>Pay</b></Q></p>" s.html || fail "salary title"
grep -q "<LINK href='s.css'" s.html || fail "style sheet"
grep -q "height='20'" s.html || fail "fixed row"

# The sample: hidden columns, captions, groups, and a total of two lines.
sample=$(dirname "$columns")/../salary
"$paperway" html --salary --db ledger.db --data "$(cat "$sample/pay.sql")" --out pay.html \
  --columns "$sample/columns.csv" --restart --two-line-total --space "&nbsp;" || fail "sample"
[ "$(grep -c '<b>Staff 12&nbsp;</b>' pay.html)" -eq 8 ] || fail "departments"
[ "$(grep -c '<b>Staff 48&nbsp;</b>' pay.html)" -eq 2 ] || fail "plants"
grep -q "<td  colspan='3' class=aG7><b>&nbsp;Earned</b></td>" pay.html || fail "captions"
[ "$(grep -c "colspan='2'  class=a" pay.html)" -eq 6 ] || fail "grand total"

# Errors name the thing; nothing is written.
expect 2 '--align' html --out x.html --align top
expect 2 '--title-size' html --out x.html --title-size 14
expect 2 'cannot begin with 9' salary --out x.html --serial 9
expect 2 '--restart alone' salary --out x.html --page-break inner
expect 2 '--serial' salary --out x.html --serial 1 --restart
expect 2 'standard output' html --out - --preview
expect 1 'There is no field' "$paperway" html --db ledger.db --columns "$columns" --out x.html \
  --data "SELECT region FROM sales"
expect 1 'no/such/folder' html --out no/such/folder/x.html
expect 1 '/dev/full' html --out /dev/full
expect 1 'it is read for what would be written' html --out ledger.db
mkdir -p config/paperway
printf 'paperway store 1\npaperway\tpagesetup\tmargin_top\twide\n' >config/paperway/store.txt
expect 1 'margin_top' html --out x.html
rm config/paperway/store.txt
[ ! -e x.html ] || fail "a failed run left x.html"
echo earlier >kept.html
expect_stop "$paperway" html --db ledger.db --columns "$columns" --out kept.html \
  --data "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT sales.* FROM n, sales"
[ "$(cat kept.html)" = earlier ] || fail "a stop took the earlier document"

# A report as a page.
"$paperway" text --db ledger.db --data "$sales" --columns "$columns" --out a.txt --title Sales \
  --pitch 136
"$paperway" convert a.txt page.html || fail "convert"
[ "$(grep -c '<br>' page.html)" = "$(grep -c '' a.txt)" ] || fail "a line for each"
[ "$(grep -c 'page-break-after' page.html)" = "$(grep -c $'\f' a.txt)" ] || fail "page breaks"

finish
