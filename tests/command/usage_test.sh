#!/usr/bin/env bash
# What the command says of itself, and of words that it does not know.
. "$(dirname "$0")/lib.sh"

# The nearest name is told, before anything that is missing.
expect 2 '"paperway" has no command "frobnicate".' "$paperway" frobnicate
expect 2 'Did you mean columns?' "$paperway" colums
expect 2 '"paperway print" has no option --pges. Did you mean --pages?' "$paperway" print --pges 3 x
expect 2 '"paperway text" has no option --dta. Did you mean --data?' "$paperway" text --dta=x
expect 2 '"paperway setting" has no command "gte". Did you mean get?' "$paperway" setting gte S k
expect 2 '"paperway words" has no place for "2".' "$paperway" words 1 2
expect 2 'A subcommand is required' "$paperway"
expect 2 'no option --no-export' "$paperway" preview x --no-export

# Data cannot command the terminal.
expect 2 '"␛[31m␊␡é�" is no number' "$paperway" words $'\e[31m\n\177\xc3\xa9\xc2\x85'
printf 'fNM,fHeder,Sz,Spc,Dtyp,Ali,Lt,Frmt,AllPageTot,GTot1,GTot2,BoldGroup1,BoldGroup2,FontNm\n' >c.csv
printf '"a\e[2J","It\r\nem",5,0,T,L,N,,,,,,,\n' >>c.csv
expect 0 'a␛[2J            It␍␊em ' "$paperway" columns c.csv
expect 1 'There is no field "a␛[2J"' "$paperway" columns c.csv --db /dev/null --data 'SELECT 1 AS x'
"$paperway" setting set S k $'\ec' --file own.ini
[ "$("$paperway" setting get S k --file own.ini)" = $'\ec' ] || fail "a value in a pipe"
script -qec "'$paperway' setting get S k --file own.ini" /dev/null </dev/null | grep -q '␛c' ||
  fail "a value on a terminal"

# The sample data's maker.
expect 0 'usage: make_ledger' "$make_ledger" --help
expect 2 'usage: make_ledger' "$make_ledger" --rows
[ -z "$(find . -name '--*')" ] || fail "help is a database"
finish
