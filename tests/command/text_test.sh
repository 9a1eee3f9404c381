#!/usr/bin/env bash
# The commands "text" and "columns", as a user types them.
. "$(dirname "$0")/lib.sh"
columns=$3

"$make_ledger" ledger.db 400
sales="SELECT * FROM sales"
text() { "$paperway" text --db ledger.db --data "$sales" --columns "$columns" "$@"; }

# A file, standard output and a query for the columns give the same bytes.
text --out a.txt --title Sales --title "" --title Third --serial 1 --pitch 136 || fail "plain run"
text --out - --title Sales --title "" --title Third --serial 1 --pitch 136 >b.txt
text --out - --title Sales --title "" --title Third --serial 1 --pitch 136 | cat >c.txt
long=$(printf %0255d 0)
"$paperway" text --db ledger.db --data "$sales" --columns "SELECT * FROM columns" --out $long \
  --title Sales --title "" --title Third --serial 1 --pitch 136
same a.txt b.txt
same a.txt c.txt
same a.txt $long
echo before >e.txt
text --out - --title Sales --title "" --title Third --serial 1 --pitch 136 >>e.txt
tail -n +2 e.txt | cmp -s - a.txt || fail "standard output that is appended to"
[ "$(grep -c $'\f' a.txt)" -gt 5 ] || fail "pages"
tr -d '\033' <a.txt | grep '^EThirdF' >/dev/null || fail "an empty title leaves its place out"
text --out empty.txt --title=Sales --title= --title=Third --serial=1 --pitch=136
same a.txt empty.txt

# Errors name the thing; nothing is written.
run="$paperway text --db ledger.db --columns $columns --out x.txt"
expect 1 '"missing.db"' "$paperway" text --db missing.db --data "$sales" --columns "$columns" --out x.txt
expect 1 'missing.csv' "$paperway" text --db ledger.db --data "$sales" --columns missing.csv --out x.txt
expect 1 'no such table' $run --data "SELECT * FROM nowhere"
expect 1 'Please Check for RecordSet' $run --data "SELECT voucher FROM sales"
expect 1 'There is no field "voucher"' $run --data "SELECT region, customer FROM sales"
expect 1 '/dev/full' text --out /dev/full
expect 1 'no/such/folder' text --out no/such/folder/x.txt
expect 2 '--data' "$paperway" text --db ledger.db --columns "$columns" --out x.txt
expect 2 '--pitch' text --out x.txt --pitch 100
expect 2 '--title' text --out x.txt --title 1 --title 2 --title 3 --title 4 --title 5 --title 6
[ ! -e x.txt ] || fail "a failed run left x.txt"

# What is read is not replaced, by whatever name; a file below /dev is one like others.
cp "$columns" own.csv
ln -s ledger.db link
ln own.csv hard.csv
for target in ledger.db ./ledger.db link own.csv hard.csv; do
  expect 1 'it is read for what would be written' \
    "$paperway" text --db ledger.db --data "$sales" --columns own.csv --out $target
done
same own.csv "$columns"
expect 0 '' "$paperway" columns own.csv --db ledger.db --data "$sales"
shared=$(mktemp -p /dev/shm) && {
  cat a.txt >"$shared"
  text --out "$shared" --title Sales --title "" --title Third --serial 1 --pitch 136
  same a.txt "$shared"
  rm "$shared"
}

# A file that may not grow, and a stop in the middle, leave the earlier report.
echo earlier >kept.txt
(
  ulimit -f 8
  text --out kept.txt 2>limit.txt
) && fail "a file over the limit"
grep -q 'kept.txt' limit.txt || fail "the limit's message: $(cat limit.txt)"
endless="WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)
  SELECT i AS voucher, i AS date, '' AS customer, '' AS region, '' AS item, i AS quantity,
    i AS rate, i AS amount FROM n"
for data in "$endless" "$endless ORDER BY i"; do
  expect_stop "$paperway" text --db ledger.db --data "$data" --columns "$columns" --out kept.txt
done
[ "$(cat kept.txt)" = earlier ] || fail "the earlier report is gone"
[ -z "$(find . -name '*.part')" ] || fail "half a file is left: $(find . -name '*.part')"

# The columns command.
expect 0 'count by customer' "$paperway" columns "$columns"
expect 0 'wider than the paper' "$paperway" columns "$columns" --db ledger.db --data "$sales"
expect 1 'There is no field' "$paperway" columns "$columns" --db ledger.db --data "SELECT 1 AS one"
printf 'fNM,fHeder,Sz\nitem,Item,10\n' >short.csv
expect 1 'There is no field "Dtyp"' "$paperway" columns short.csv

# Fields that may be null need not be there.
printf 'fNM,fHeder,Sz,Spc,Dtyp,Ali,Lt\nitem,Item,10,1,T,L,N\n' >short.csv
printf 'fNM,fHeder,Sz,Spc,Dtyp,Ali,Lt,AllPageTot,GTot1,GTot2,Frmt,BoldGroup1,BoldGroup2,FontNm\n' >null.csv
printf 'item,Item,10,1,T,L,N,,,,,,,\n' >>null.csv
report() { "$paperway" text --db ledger.db --data "$sales" --columns $1.csv --out $1.txt; }
report short || fail "a table of the fields that may not be null"
report null && same short.txt null.txt

# Data that may command the printer is told once, and stands in the report as it is.
data="SELECT 'a' AS item UNION ALL SELECT 'b' || char(12) UNION ALL SELECT 'Crème' UNION ALL
  SELECT 'c' || char(27) || 'E' UNION ALL SELECT '0123456789' || char(7)"
expect 0 'Warning: 2 rows hold control characters, which a printer may obey; the first is row 2.' \
  "$paperway" text --db ledger.db --data "$data" --columns short.csv --out control.txt
grep -q $'^b\f        ' control.txt || fail "a cell that holds a form feed"
expect 0 'it is row 1.' "$paperway" text --db ledger.db --data "SELECT char(127) AS item" \
  --columns short.csv --out control.txt

# A table to begin with.
from() { "$paperway" columns --db ledger.db --from "$1"; }
from "SELECT voucher AS bill_no, date, quantity, amount, NULL AS \"x,y\" FROM sales" >starter.csv
cat >wanted.csv <<'E'
fNM,fHeder,Sz,Spc,Dtyp,Ali,Frmt,Lt
bill_no,Bill no,11,1,T,L,,N
date,Date,11,1,D,L,dd-mmm-yyyy,N
quantity,Quantity,8,1,N,R,,N
amount,Amount,9,1,N,R,"#,##0.00",N
"x,y","X,y",3,1,T,L,,N
E
same starter.csv wanted.csv
expect 0 'n,N,13,1,N,R,"#,##0.0000",N' from "SELECT 1 AS n UNION SELECT -123456.78901"
expect 0 'holds texts of up to 99 characters; its column is 60 wide' from "SELECT printf('%099d') AS w"
expect 0 'there are no rows' from "SELECT * FROM sales LIMIT 0"
from "$sales" >sales.csv
report sales || fail "a report of the starter table"
expect 2 'table or --from is required' "$paperway" columns
expect 2 'excludes' "$paperway" columns sales.csv --db ledger.db --from "$sales"
finish
