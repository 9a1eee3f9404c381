#!/usr/bin/env bash
# The command "browse", as a user types it.
. "$(dirname "$0")/lib.sh"
columns=$3
export CUPS_SERVER=127.0.0.1:1

"$make_ledger" ledger.db 200
"$paperway" html --db ledger.db --data "SELECT * FROM sales" --columns "$columns" --out ledger.html \
  --title "Sales ledger" --serial 1 || fail "html"
cp ledger.html before.html

expect 0 '' "$paperway" browse ledger.html --picture window.png --size 700,500 --scale 2
file window.png | grep -q '1400 x 1000' || fail "picture: $(file window.png)"
expect 0 '' "$paperway" browse ledger.html --pdf tall.pdf
expect 0 '' "$paperway" browse ledger.html --landscape --pdf wide.pdf
[ "$(pdfinfo tall.pdf | awk '/^Pages/ { print $2 }')" -eq \
  "$(($(grep -c page-break-after ledger.html) + 1))" ] || fail "as many sheets as page heads"
pdfinfo tall.pdf | grep -Eq 'Page size: +59[0-9.]+ x 84' || fail "A4: $(pdfinfo tall.pdf)"
pdfinfo wide.pdf | grep -Eq 'Page size: +84[0-9.]+ x 59' || fail "landscape: $(pdfinfo wide.pdf)"
pdftotext tall.pdf tall.txt
grep -q 'Sales ledger' tall.txt || fail "text of the pages"
same ledger.html before.html
expect 0 '' "$paperway" browse ledger.html --look-only --picture look.png
grep -q "onContextMenu='return false'" ledger.html || fail "look only"

cp tall.pdf kept.pdf
expect 1 '"none.html"' "$paperway" browse none.html --pdf tall.pdf
expect 1 'No space left on device' "$paperway" browse before.html --pdf /dev/full
expect 1 '"none/a.pdf"' "$paperway" browse before.html --pdf none/a.pdf
expect 1 'before.html' "$paperway" browse before.html --pdf before.html
expect 2 '--pdf' "$paperway" browse before.html --look-only --pdf a.pdf
same tall.pdf kept.pdf
finish
