#!/usr/bin/env bash
# The command "stickers", as a user types it.
. "$(dirname "$0")/lib.sh"

stickers="$paperway stickers"
"$make_ledger" ledger.db 100 >/dev/null

expect 0 '' $stickers --line AB --line CDEFGH --length 4 --columns 2 --rows 2 --blank 0 \
  --condensed --out sheet.txt
printf '\017AB     AB     \r\nCDEF   CDEF   \r\n\r\nAB     AB     \r\nCDEF   CDEF   \r\n\022\f\r\n' >wanted.txt
same sheet.txt wanted.txt
$stickers --line AB --line CDEFGH --length 4 --columns 2 --rows 2 --blank 0 --condensed --out - >out.txt
same out.txt wanted.txt

expect 0 '' $stickers --save-preset 2 --line AB --line CDEFGH --length 4 --columns 2 --rows 2 \
  --blank 0 --condensed
expect 0 '' $stickers --preset 2 --out preset.txt
same preset.txt wanted.txt
for i in {1..5}; do $stickers --save-preset $i --line "preset $i" & done
wait
for i in {1..5}; do
  expect 0 "preset $i" $stickers --preset $i --out -
done

rows=(--db ledger.db --data "SELECT * FROM sales ORDER BY rowid LIMIT 3")
expect 0 '' $stickers "${rows[@]}" --line "{customer}" --line "{amount:#,##0.00}" --columns 1 --out rows.txt
[ "$(grep -c '[0-9]\.[0-9][0-9]' rows.txt)" -eq 3 ] || fail "a sticker for each row: $(cat rows.txt)"
expect 0 '' $stickers "${rows[@]}" --line "{customer}" --copies 4 --columns 4 --rows 3 --out copies.txt
[ "$(head -n 1 copies.txt | cut -c 1-20)" = "$(head -n 1 copies.txt | cut -c 70-89)" ] || fail "copies"

expect 1 'no field "nme"' $stickers "${rows[@]}" --line "{nme}" --out rows.txt
expect 1 'ledger.db' $stickers "${rows[@]}" --line x --out ledger.db
expect 1 '"none/sheet.txt"' $stickers --line x --out none/sheet.txt
expect 2 'at most five' $stickers --line 1 --line 2 --line 3 --line 4 --line 5 --line 6 --out x.txt
expect 2 '--length' $stickers --length 256 --line x --out x.txt
expect 2 '--data' $stickers --copies 2 --line x --out x.txt
expect 2 '--out or --save-preset is required' $stickers --line x
expect 2 'control character' $stickers --line $'a\nb' --out x.txt
expect 2 'is not UTF-8' $stickers --save-preset 1 --line $'a\xffb'
[ ! -e x.txt ] || fail "a refused line wrote a sheet"
expect 2 '--save-preset' $stickers --save-preset 3 --line x --picture x.png
expect 2 '--dark' $stickers --line x --out x.txt --dark
expect 1 'none/sheet.txt' $stickers --preset 2 --save-preset 3 --out none/sheet.txt
expect 0 'preset 3' $stickers --preset 3 --out -
$stickers --save-preset 4 --line AB --condensed && $stickers --preset 4 --normal --save-preset 4 --out normal.txt
expect 2 '--condensed' $stickers --normal --condensed --line x --out x.txt
grep -q $'\017' normal.txt && fail "a preset becomes normal"
$stickers --preset 4 --out - | grep -q $'\017' && fail "and is kept so"
expect 2 '--data is required' $stickers --db ledger.db --line x --out x.txt
expect 0 'OPss(1)' $stickers --help
finish
