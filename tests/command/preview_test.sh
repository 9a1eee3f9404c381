#!/usr/bin/env bash
# The command "preview", as a user without a display types it.
. "$(dirname "$0")/lib.sh"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
preview="$paperway preview"
printf 'one\r\n\f\r\ntwo\r\n\f\r\nthree\r\n\f\r\n' >report.txt

if [[ $($preview report.txt 2>&1) == *"This build has no windows"* ]]; then
  expect 1 'no windows' $preview report.txt --picture a.png
  finish
fi

# Width and height of a picture, from its header.
size() { od -An -j16 -N8 -t u1 "$1" | awk '{ print $3 * 256 + $4, $7 * 256 + $8 }'; }

expect 1 'no display' $preview report.txt
expect 1 'nowhere.txt' $preview nowhere.txt --picture a.png
expect 0 '' $preview report.txt --picture a.png
expect 0 '' $preview report.txt --picture b.png --scale 2
expect 0 '' $preview report.txt --picture c.png --page 3 --size 1200,800 --dark
[ "$(size a.png)" = "1000 700" ] || fail "size of a picture: $(size a.png)"
[ "$(size b.png)" = "2000 1400" ] || fail "size at scale 2: $(size b.png)"
[ "$(size c.png)" = "1200 800" ] || fail "chosen size: $(size c.png)"
cmp -s a.png c.png && fail "page 3 looks like page 1"
expect 1 'has 3 pages, not 4' $preview report.txt --picture d.png --page 4
expect 1 'none/d.png": no new file' $preview report.txt --picture "$work/none/d.png"
ln report.txt hard.png
expect 1 'it is read for what would be written' $preview report.txt --picture hard.png
expect 2 '--picture' $preview report.txt --scale 2

# Steps before the picture, and features left out.
expect 0 '' $preview report.txt --picture e.png --do Text4=one --do Command2
cmp -s a.png e.png && fail "steps leave no trace"
expect 1 'cannot be clicked' $preview report.txt --picture f.png --no-continuous --do Check3
expect 1 'Label7 is nothing to click.' $preview report.txt --picture f.png --do Label7
expect 1 'Command2 is nothing to type into.' $preview report.txt --picture f.png --do Command2=x
for control in CmdImport JeweledButton1; do
  expect 1 'There is no display to ask for a file on.' $preview report.txt --picture f.png --do $control
done
expect 1 'cannot be clicked' $preview report.txt --picture f.png --no-export --do JeweledButton1
for name in 'Text4=TEXT          Search String' 'CmdPrint            Print' 'Op(2)               Page Range'; do
  expect 0 "$name" $preview --help
done
expect 0 '' $preview report.txt --picture f.png --no-edit --no-search --no-import --no-export \
  --no-color --no-print
cmp -s a.png f.png && fail "left-out features are shown"
[ ! -e d.png ] || fail "a failed run left d.png"

expect 1 'no display' "$paperway" text --db none.db --data x --columns x --out o.txt --preview
expect 2 '--preview' "$paperway" text --db none.db --data x --columns x --out - --preview
finish
