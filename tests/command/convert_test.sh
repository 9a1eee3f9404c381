#!/usr/bin/env bash
# The command "convert", as a user types it.
. "$(dirname "$0")/lib.sh"
columns=$3
readers=$(dirname "$0")/read_sheet.py

"$make_ledger" ledger.db 400
"$paperway" text --db ledger.db --columns "$columns" --data "SELECT * FROM sales" --out a.txt \
  --title "Sales ledger" --serial 1 --pitch 136 || fail "text"
convert() { "$paperway" convert "$@"; }

# The rows come back out of the report; with --totals, the sums that the data have.
convert a.txt a.csv || fail "csv"
[ "$(wc -l <a.csv)" -eq 401 ] || fail "rows"
[ "$(head -n 1 a.csv)" = $'Group 1,Group 2,#,Voucher,Date,Customer,Region,Item,Quantity,Rate,Amount\r' ] || fail "heading"
sums=$(/usr/bin/python3 -c '
import csv, sys
rows = list(csv.DictReader(open("a.csv")))
print(sum(int(r["Quantity"]) for r in rows), "%.2f" % sum(float(r["Amount"]) for r in rows))')
convert - all.CSV --totals <a.txt || fail "totals"
[ "$(tail -n 1 all.CSV | tr -d '\r')" = ",,,,,,,,${sums% *},,${sums#* }" ] || fail "grand total: $sums"

# Workbooks hold numbers and dates; both formats the same.
for end in xlsx xls; do
  convert a.txt "a.$end" && "$readers" "a.$end" | sed 1,2d >"$end.txt" || fail "$end"
done
diff xlsx.txt xls.txt || fail "the formats differ"
grep -q "|45839\[Arial dd..mmm..yyyy \]|.*|8517.1\[Arial #,##0.00 \]" xlsx.txt ||
  fail "numbers and dates: $(sed -n 3p xlsx.txt)"

# Columns are shown, kept, changed and taken again.
convert a.txt --show --save-map a.map >shown.txt || fail "show"
[ "$(sed -n 2p shown.txt | cut -c1-19)" = "|----|------------|" ] || fail "drawing"
sed -i 's/| #$/| No/' a.map
convert a.txt b.csv --map a.map || fail "map"
[ "$(head -n 1 b.csv | cut -d, -f 3)" = No ] || fail "mapped heading"
convert a.txt marks.csv --marks 5,18 || fail "marks"
[ "$(wc -l <marks.csv)" -eq "$(wc -l <a.txt)" ] || fail "every line is cut"
grep -qx $'   1 ,250701/0001  \r' marks.csv || fail "literal cut"

# The other ends of names.
convert a.txt page.html || fail "html"
convert - page.HTM <a.txt || fail "html from standard input"
same page.html page.HTM
convert a.txt copy.txt && same a.txt copy.txt
convert a.txt a.rtf && head -c 5 a.rtf | grep -q rtf || fail "rtf"

cp a.csv before.csv
expect 2 'ends in none of .html, .htm, .xlsx' convert a.txt page.doc
expect 2 'columns are for .xlsx, .xls and .csv alone' convert a.txt page.html --totals
expect 2 'is needed, unless --show' convert a.txt
expect 2 '--marks excludes --map' convert a.txt a.csv --marks 5 --map a.map
expect 1 'No columns were found in "/dev/null"' convert /dev/null a.csv
expect 1 '"a.txt" is no column map: line 1' convert a.txt a.csv --map a.txt
expect 1 'none.txt' convert none.txt a.csv
for same in a.csv page.html; do
  expect 1 'it is read for what would be written' convert "$same" "$same"
done
printf '   1 |    7 | number | 0 | #\n   8 | 18 | text | | Voucher\n' >wrong.map
expect 0 'have words across the edge of a column, the first is row 1' convert a.txt b.csv --map wrong.map
expect 1 'Cannot write "./a.csv"' convert a.txt a.csv --save-map ./a.csv
same a.csv before.csv
finish
