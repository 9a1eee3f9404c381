#!/usr/bin/env bash
# The commands "words" and "setting", as a user types them.
. "$(dirname "$0")/lib.sh"

expect 0 'Twelve Lack Thirty-Four Thousand Five Hundred Sixty-Seven and Eighty-Nine Paisa Only' \
  "$paperway" words 12,34,567.89
expect 0 'zero ' "$paperway" words -5
expect 2 '"12x" is no number' "$paperway" words 12x
expect 2 'amount is required' "$paperway" words

setting="$paperway setting"
expect 1 'There is no key "Bold"' $setting get ReportView Bold
expect 0 '' $setting set ReportView Bold 255
expect 0 '' $setting set ReportView Bold "" --company 7
expect 0 255 $setting get reportview bold
[ "$($setting get ReportView Bold --company 7)" = "" ] || fail "an empty value"
printf '[ReportView]\r\nBold=255\r\n' | cmp -s - data/paperway/work/.ini || fail "the file's bytes"
expect 1 '"../x"' $setting get ReportView Bold --company ../x
expect 1 'There is no file "none.ini"' $setting get S k --file none.ini
expect 0 '' $setting set S k 'a=b €' --file own.ini
expect 0 'a=b €' $setting get S k --file own.ini
expect 1 'PutValue holds' $setting set S k ₹ --file own.ini
expect 1 '"no/own.ini"' $setting set S k 1 --file no/own.ini
expect 2 '--company' $setting get S k --file own.ini --company 7
expect 2 'value is required' $setting set S k --file own.ini
finish
