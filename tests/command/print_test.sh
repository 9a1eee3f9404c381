#!/usr/bin/env bash
# The commands "print" and "printers", as a user types them.
. "$(dirname "$0")/lib.sh"
export CUPS_SERVER=127.0.0.1:1
print="$paperway print report.txt"
printers="$paperway printers"
printf 'one\r\n\f\r\ntwo\r\n\f\r\ncaf\351\r\n\f\r\n' >report.txt
setup12() { printf '\033P\033x\000\033C\000\014\033\031C%b\033C\000\014' "${1-}"; }

expect 0 'There is no printer.' $printers
expect 1 'is no direct printer' $printers add Bad lpt1
expect 0 '' $printers add File "file://$work/out"
expect 0 '' $printers add "A program" "|cat > $work/program" --timeout 90
expect 0 '* File       raw    file:///' $printers list
expect 0 'File took ' $printers test File
grep -q 'Paperway test page: File' out || fail "the test page"
expect 0 '' $printers remove File
expect 1 'There is no direct printer "File".' $printers remove File
grep -q '^A program' config/paperway/printers || fail "the file of printers"

expect 0 '' $print
{ setup12 && printf 'one\r\n\ftwo\r\n\fcaf\351\r\n\f'; } | cmp -s - program || fail "all pages"
expect 0 '' $print --pages 2- --copies 2 --paper 12 --tear 1,1
{ setup12 '\033jH' && printf '\r\ntwo\r\n\fcaf\351\r\n\f\r\ntwo\r\n\fcaf\351\r\n\f%40s\r\n' ''; } |
  cmp -s - program || fail "a range, twice, with tear lines"
expect 0 '' $print --pages 3,1
{ setup12 && printf 'one\r\n\fcaf\351\r\n\f'; } | cmp -s - program || fail "pages of a list"
expect 1 'report.txt has 3 pages, and no page 4.' $print --pages 1,4
expect 2 'takes pages and ranges' $print --pages 3-2
expect 2 'excludes' $print --styled --pitch 12
expect 1 'File none.txt does not exists' "$paperway" print none.txt
expect 1 "The Printer Name (Elsewhere) wasn't recognized." $print --printer Elsewhere
expect 0 '' $printers add Full file:///dev/full
expect 1 'took nothing of the job: No space left on device' $print --printer Full
printf '%090d\r\n\f' 1 >wide.txt
expect 0 'warning: Will not fit: a line of 9 inches on page 1, the paper has 8' \
  "$paperway" print wide.txt
expect 0 '' "$paperway" print wide.txt --pitch 12

# A printer that is the report does not take its place.
cp report.txt kept.txt
ln -s report.txt link.txt
for target in report.txt link.txt; do
  expect 0 '' $printers add Itself "file://$work/$target"
  expect 1 'it is read for what would be written' $print --printer Itself
  expect 1 'it is read for what would be written' $print --printer Itself --pages 2
  expect 1 'it is read for what would be written' "$paperway" print - --printer Itself <report.txt
done
same report.txt kept.txt

# A printer that stands still keeps nobody who wants to stop.
head -c 1000000 /dev/zero | tr '\0' x >long.txt
mkfifo still
exec 4<>still
for target in '|sleep 1000' "file://$work/still" '|cat >/dev/null; sleep 1000'; do
  expect 0 '' $printers add Still "$target"
  expect_stop "$paperway" print long.txt --printer Still
done
expect 1 'report.txt has 3 pages, and no page 4.' env TMPDIR="$work" $print --pages 4
[ -z "$(ls -A paperway-*)" ] || fail "work files are left: $(ls -A paperway-*)"

# Letters of the printer, in text alone, behind the command that selects their table.
expect 0 '' $printers set "A program" --code-table 858
printf 'Cr\350me \200 \033$\350\350 \227\r\n' >letters.txt
expect 0 'warning: 1 letter that code page 858 lacks is printed as a plain one.' \
  "$paperway" print letters.txt --printer "A program"
{ setup12 && printf '\033(t\003\0\001\054\0\033t\001\0336Cr\212me \325 \033$\350\350 -\r\n'; } |
  cmp -s - program || fail "letters of code page 858"
expect 0 '' $printers set "A program" --code-table none
for table in 437 none; do
  expect 1 'There is no printer "A progam". Did you mean A program?' \
    $printers set "A progam" --code-table $table
done

# Standard input; a printer that nobody chose; one that is nearly right.
out=$("$paperway" print - --pages 2 --printer "A program" <report.txt 2>&1) || fail "standard input: $out"
{ setup12 && printf '\r\ntwo\r\n\f'; } | cmp -s - program || fail "a page of standard input"
expect 0 'No printer is the default one; this goes to "A program", the first of them.' $print
expect 1 'There is no printer "a progam". Did you mean A program?' $print --printer "a progam"
expect 1 'There is no printer "Ful". Did you mean Full?' $printers test Ful
expect 1 'There is no direct printer "Ful". Did you mean Full?' $printers remove Ful

if $print --pdf all.pdf 2>said; then
  [ "$(pdftotext -layout all.pdf - | tr -d '\n')" = $'one\ftwo\fcafé\f' ] || fail "the text of the PDF"
  expect 0 '' $print --pages 3 --copies 2 --pdf two.pdf
  [ "$(pdftotext two.pdf - | tr -d '\n')" = $'café\fcafé\f' ] || fail "two copies of page 3"
  expect 0 '' $print --pages 1,3 --pdf two.pdf
  [ "$(pdftotext two.pdf - | tr -d '\n')" = $'one\fcafé\f' ] || fail "a PDF of pages 1 and 3"
  seq 300000 >long.txt
  expect 0 'warning: Will not fit: 300000 lines' "$paperway" print long.txt --pdf long.pdf
  [ "$(stat -c %s long.pdf)" -lt 100000 ] || fail "lines beyond the paper are in the PDF"
  expect 1 'It is written to directly and takes raw text alone' $print --styled
  expect 1 'it is read for what would be written' $print --pdf link.txt
  expect 1 'it is read for what would be written' "$paperway" print - --pdf link.txt <report.txt
  same report.txt kept.txt
  expect 1 'none/all.pdf' $print --pdf none/all.pdf
  expect 1 'There is no printer "Elsewhere".' $print --printer Elsewhere --pdf new.pdf
  "$paperway" print - --pages 1,3 --pdf - <report.txt | pdftotext - - | tr -d '\n' >through.txt
  [ "$(cat through.txt)" = $'one\fcafé\f' ] || fail "a PDF through a pipe"
  $print --pages 1 --pdf - >one.pdf && pdftotext one.pdf - | grep -qx one || fail "a PDF to a file"
  [ ! -e - ] || fail "a file named -"
  # The paper: letters of the printer's table, what is cut, sheets of another height.
  expect 0 'warning: Pages of 12 inches on sheets of 11 inches: each begins 1 inch lower' \
    $print --paper-picture paper.pdf --fanfold 11
  [ "$(pdftotext paper.pdf - | tr -d '\n')" = $'one\ftwo\fcaf\u0398\f\f' ] || fail "paper in 437"
  [ "$(pdfinfo paper.pdf | awk '/Page size/ { print $3, $5 }')" = "684 792" ] || fail "its size"
  expect 0 '' $printers set "A program" --code-table 850
  expect 0 '' $print --pages 3 --printer "A program" --paper-picture paper.pdf
  [ "$(pdftotext paper.pdf - | tr -d '\n')" = $'café\f' ] || fail "paper in the printer's table"
  printf '%0200d\r\n' 0 >wide.txt
  expect 0 'warning: 1 line is cut at the right edge' \
    "$paperway" print wide.txt --paper-picture wide.png --pins 24
  file wide.png | grep -q '912 x 1152' || fail "a picture of one sheet"
  expect 1 'There is no printer "Elsewhere".' $print --printer Elsewhere --paper-picture new.pdf
  [ ! -e new.pdf ] || fail "the paper of a printer that is not there"
  expect 2 'ends in .pdf or .png' $print --paper-picture paper.txt
  expect 2 'of 1 to 24 inches' $print --paper-picture paper.pdf --fanfold 11x
  ln -s report.txt link.pdf
  expect 1 'it is read for what would be written' $print --paper-picture link.pdf
  expect 2 'nothing for a terminal' script -qec "$print --pdf -" /dev/null
else
  grep -q 'This build has no windows' said || fail "a PDF: $(cat said)"
fi
finish
