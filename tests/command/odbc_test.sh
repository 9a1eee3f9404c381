#!/usr/bin/env bash
# The commands on databases that ODBC reaches.
. "$(dirname "$0")/lib.sh"
columns=$3
postgres=$(cat "$4") || exit 1

"$make_ledger" ledger.db 400
sqlite="Driver=SQLite3;Database=$work/ledger.db;StepAPI=1"
sales="SELECT * FROM sales ORDER BY rowid"
text() { "$paperway" text --data "$sales" --columns "SELECT * FROM columns" --serial 1 "$@"; }

# The same report by either road, the column table too.
text --db ledger.db --out a.txt
text --odbc "$sqlite" --out b.txt
same a.txt b.txt
expect 0 'count by customer' "$paperway" columns "SELECT * FROM columns" --odbc "$sqlite" --data "$sales"

# A server: its rows, its errors, an answer to the request to stop.
row="SELECT 'V1' AS voucher, DATE '2026-03-05' AS date, 'Ana' AS customer, 'Goa' AS region,
  'Café' AS item, n AS quantity, 2.50 AS rate, n * 2.50 AS amount"
expect 0 '05-Mar-2026' "$paperway" text --odbc "$postgres" --columns "$columns" --out - \
  --data "$row FROM generate_series(1, 5) n"
expect 1 '[42P01]' "$paperway" text --odbc "$postgres" --columns "$columns" --out x.txt \
  --data "SELECT * FROM nowhere"
expect 1 '[IM002]' text --odbc nothing --out x.txt
expect 2 '--db' text --odbc "$sqlite" --db ledger.db --out x.txt
expect 2 '--odbc' text --out x.txt
[ ! -e x.txt ] || fail "a failed run left x.txt"

"$paperway" text --odbc "$postgres" --columns "$columns" --out c.txt \
  --data "$row FROM generate_series(1, 50000000) n ORDER BY n % 7" 2>stop.txt &
while [ -e "/proc/$!/status" ] && ! listens_for_term $!; do :; done
kill -TERM $!
wait $!
code=$?
[ $code -eq 143 ] || fail "a stop ends with $code"
grep -q stopped stop.txt || fail "the stop's message: $(cat stop.txt)"
finish
