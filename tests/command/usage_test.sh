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

# Data cannot command the terminal.
expect 2 '"␛[31m␊␡é�" is no number' "$paperway" words $'\e[31m\n\177\xc3\xa9\xc2\x85'
printf 'fNM,fHeder,Sz,Spc,Dtyp,Ali,Lt,Frmt,AllPageTot,GTot1,GTot2,BoldGroup1,BoldGroup2,FontNm\n' >c.csv
printf '"a\e[2J","It\r\nem",5,0,T,L,N,,,,,,,\n' >>c.csv
expect 0 'a␛[2J            It␍␊em ' "$paperway" columns c.csv
: >empty.db
expect 1 'There is no field "a␛[2J"' "$paperway" columns c.csv --db empty.db --data 'SELECT 1 AS x'
"$paperway" setting set S k $'\ec' --file own.ini
[ "$("$paperway" setting get S k --file own.ini)" = $'\ec' ] || fail "a value in a pipe"
script -qec "'$paperway' setting get S k --file own.ini" /dev/null </dev/null | grep -q '␛c' ||
  fail "a value on a terminal"

# The manual page and the completions of each shell hold each option of each command.
"$paperway" --manual >paperway.1
for shell in bash zsh fish; do "$paperway" --completion $shell >complete.$shell; done
ln -s "$paperway" paperway
export PATH=$work:$PATH
"$paperway" printers add "Two words" "|cat" || fail "a printer to complete"

in_bash() { # WORD...: what is offered for the last one
  bash -c '. ./complete.bash; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _paperway 2>/dev/null
    printf "%s\n" "${COMPREPLY[@]}"' bash "$@"
}
in_fish() { fish -c 'source complete.fish; complete -C "$argv[1]"' "$1" | cut -f1; }
commands_of() { "$paperway" $1 --help | awk '/^Subcommands:/ { on = 1; next } /^$/ { on = 0 } on { print $1 }'; }

everywhere() { # COMMAND: it, and those below it
  local option below options=0
  awk -v start=".SS paperway $1 " '/^\.S/ { on = 0 } index($0 " ", start) == 1 { on = 1 } on' \
    paperway.1 | sed 's/\\//g' >section
  awk -v start="_paperway_${1// /_}() {" '/^}/ { on = 0 } $0 == start { on = 1 } on' complete.zsh >function
  in_bash paperway $1 -- >words
  in_fish "paperway $1 --" >fish
  for option in $("$paperway" $1 --help | grep -oE '^  (-h,)?--[a-z-]+' | grep -oE -- '--.*'); do
    options=$((options + 1))
    grep -qE -- "^\.B (-h,)?$option( |$)" section || fail "$1: no $option in the manual page"
    grep -q -- "$option[=[]" function || fail "$1: no $option in zsh"
    grep -qx -- "$option" words || fail "$1: no $option in bash"
    grep -qx -- "$option" fish || fail "$1: no $option in fish"
  done
  [ $options -gt 0 ] || fail "$1: help without options"
  for below in $(commands_of "$1"); do
    in_bash paperway $1 "${below:0:2}" | grep -qx "$below" || fail "$1 $below: not in bash"
    in_fish "paperway $1 ${below:0:2}" | grep -qx "$below" || fail "$1 $below: not in fish"
    everywhere "$1 $below"
  done
}
for command in $(commands_of ""); do everywhere $command; done
[ "$(in_bash paperway text --pitch 1)" = 136 ] || fail "a choice in bash"
[ "$(in_bash paperway print --printer = T)" = 'Two\ words' ] || fail "a printer in bash"
[ "$(in_bash paperway print c.)" = c.csv ] || fail "a file in bash"
[ "$(in_fish 'paperway printers test T')" = 'Two words' ] || fail "a printer in fish"
zsh -n complete.zsh || fail "the syntax for zsh"
groff -man -ww -Tutf8 paperway.1 2>&1 >/dev/null | grep . && fail "the manual page's marks"

# The sample data's maker.
expect 0 'usage: make_ledger' "$make_ledger" --help
expect 2 'usage: make_ledger' "$make_ledger" --rows
[ -z "$(find . -name '--*')" ] || fail "help is a database"
finish
