#!/usr/bin/env bash
# The command "sheet", as a user types it; other people's readers open what it writes.
. "$(dirname "$0")/lib.sh"
columns=$3
readers=$(dirname "$0")/read_sheet.py

"$make_ledger" ledger.db 400
sheet() { "$paperway" sheet --db ledger.db --columns "$columns" --data "SELECT * FROM sales" "$@"; }
cells() { "$readers" "$1" | sed -n "$2"; }

# Both formats hold the same cells with the same looks.
for end in xlsx xls; do
  sheet --out "a.$end" --title "Sales & more" --title "" --title March --title-font "Times <New>" \
    --serial 7 --landscape --left-footer "Left & more" --top-margin 36 || fail "plain run"
  "$readers" "a.$end" >"$end.txt" || fail "$end is read"
done
diff <(sed 1,2d xlsx.txt) <(sed 1,2d xls.txt) || fail "the formats differ"
[ "$(sed -n 1p xlsx.txt)" = "9|landscape|0.75|0.75|0.5|1.0|0.5" ] || fail "page"
[ "$(sed -n 2p xlsx.txt)" = '$1:$3|&LLeft & more&CPage &P of &N' ] || fail "titles and footer"
grep -qx "'Sales & more'\[Times <New> General \]" xlsx.txt || fail "title"
grep -q "^406\[Arial General g\]|'.*'\[Arial General g\]|'..-...-20..'\[Courier New General g\]" xlsx.txt ||
  fail "row"
/usr/bin/python3 -m zipfile -e a.xlsx parts
grep -q '<f>SUM(G4:G403)</f><v>[1-9]' parts/xl/worksheets/sheet1.xml || fail "sum"
sheet --out plain --serial 0 && [ -s plain.xlsx ] || fail "a name without an end"

# Texts and numbers that need care come back as they were.
cat >odd.csv <<'END'
fNM,fHeder,Sz,Spc,Dtyp,Ali,Frmt,Lt,AllPageTot,FontNm
t,T,9,0,T,L,,N,N,Arial
n,N,9,0,N,R,"""Rs. ""#,##0.00;(#,##0.00)",Y,N,Arial
d,D,0,0,T,L,,N,N,Arial
END
odd="SELECT '=1+1' t, -1234.5 n, 1 d UNION ALL SELECT ' 007 ', 0.001, 2.5 UNION ALL
  SELECT 'a<b>&\"c\" €😀', 1e15, NULL UNION ALL SELECT replace('x x', ' ', char(10)), 123456.785, 'é'"
for end in xlsx xls; do
  "$paperway" sheet --db ledger.db --columns odd.csv --data "$odd" --out "odd.$end" || fail "odd run"
  "$readers" "odd.$end" | sed -e 1,3d -e 's/|\[Arialb General \]//g' >"odd.$end.txt"
  diff - "odd.$end.txt" <<'END' || fail "odd cells in $end"
'T'[Arialb General g]|'N'[Arialb "Rs. "#,##0.00;"("#,##0.00")" g]|'D'[Arialb General g]
'=1+1'[Arial General g]|-1234.5[Arial "Rs. "#,##0.00;"("#,##0.00")" g]|1[Arial General g]
' 007 '[Arial General g]|0[Arial "Rs. "#,##0.00;"("#,##0.00")" g]|2.5[Arial General g]
'a<b>&"c" €😀'[Arial General g]|1e+15[Arial "Rs. "#,##0.00;"("#,##0.00")" g]|[Arial General g]
'x\nx'[Arial General g]|123456.79[Arial "Rs. "#,##0.00;"("#,##0.00")" g]|'é'[Arial General g]
[Arial General g]|1e+15[Arial "Rs. "#,##0.00;"("#,##0.00")" g]|[Arial General g]
END
done
grep -q 'hidden="1"' <(/usr/bin/python3 -m zipfile -e odd.xlsx odd && cat odd/xl/worksheets/sheet1.xml) || fail "hidden"

# Errors name the thing, and an earlier workbook stands.
one() { "$paperway" sheet --db ledger.db --columns odd.csv --out a.xls --data "$@"; }
cp a.xls before.xls
many="WITH RECURSIVE r(t) AS (VALUES(1) UNION ALL SELECT t + 1 FROM r WHERE t < 65600) SELECT t, t n, t d FROM r"
expect 1 'more rows than the 65,536 of its file format. A name that ends in ".xlsx" takes' one "$many"
expect 1 'cell A3 has a text of 40,000 characters; a cell holds 32,767' \
  one "SELECT 'a' t, 1 n, 1 d UNION ALL SELECT replace(printf('%40000s', ''), ' ', 'x'), 1, 1"
expect 1 '"a.ods" is no name of a workbook' sheet --out a.ods
expect 1 'footer has 312 characters' sheet --out a.xls --left-footer "$(printf '%0290d' 0)" \
  --right-footer abc
expect 2 'a workbook needs a name' sheet --out -
expect 1 'ledger.db' sheet --out ledger.db
same a.xls before.xls
mkdir folder.xlsx && expect 1 'folder.xlsx' sheet --out folder.xlsx
[ "$(ls -A | grep -c part$)" = 0 ] || fail "nothing is left behind"
finish
