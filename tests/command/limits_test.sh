#!/usr/bin/env bash
# What the commands do where the machine says no: an output that fails, an input without end, no
# room in memory, no folder of the user's.
. "$(dirname "$0")/lib.sh"
columns=$3
export CUPS_SERVER=127.0.0.1:1

"$make_ledger" ledger.db 400
text="$paperway text --db ledger.db --columns $columns"
sales="SELECT * FROM sales"
"$paperway" setting set S k v --file own.ini
"$paperway" printers add File "file://$work/out"

# Standard output that cannot be written, or is closed.
while read -r command; do
  for output in '>/dev/full' '>&-'; do
    expect 1 'Cannot write "standard output": ' bash -c "'$paperway' $command 2>&1 $output"
  done
done <<END
words 5
setting get S k --file own.ini
printers
printers test File
columns $columns
--version
print --help
END
"$paperway" print none.txt 2>&- && fail "a failure that cannot be told"

# Inputs that never end, or never begin.
mkfifo pipe
endless="WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n"
expect 1 'it is a device or a pipe' timeout 10 "$paperway" text --db pipe --data "$sales" \
  --columns "$columns" --out x.txt
expect 1 '"/dev/zero": File too large' timeout 10 "$paperway" columns /dev/zero
expect 1 'more than 10000 rows' timeout 10 "$paperway" columns "$endless" --db ledger.db

expect_stop $text --data "$sales" --out pipe
expect_stop "$paperway" text --db ledger.db --data "$sales" --columns pipe --out x.txt
expect_stop "$paperway" print pipe --printer File

# More than memory holds.
truncate -s 8G large.txt
# (The sanitizers' own memory does not fit in so little.)
if (ulimit -v 2000000; "$paperway" --version) >/dev/null 2>&1; then
  expect 1 'Cannot read "large.txt": Cannot allocate memory.' bash -c \
    'ulimit -v 2000000; "$0" setting get S k --file large.txt' "$paperway"
  if "$paperway" preview own.ini --picture own.png 2>/dev/null; then
    expect 1 'Cannot read "large.txt": Cannot allocate memory.' bash -c \
      'ulimit -v 2000000; "$0" preview large.txt --picture x.png' "$paperway"
  fi
fi

# A report needs no folder of the user's, nor a temporary one.
mkdir shared
ln -s .. "shared/paperway-$(id -u)"
nowhere="env HOME=/dev/null XDG_DATA_HOME=/dev/null/data XDG_CONFIG_HOME=/dev/null/config TMPDIR=$work/shared"
expect 0 '' $nowhere $text --data "$sales" --out report.txt
expect 0 'One' $nowhere "$paperway" words 1
expect 1 '"/dev/null"' $nowhere "$paperway" setting get S k
expect 1 "not the user's own" $nowhere XDG_CONFIG_HOME="$work/config" "$paperway" print report.txt --pages 1
[ ! -e x.txt ] || fail "a failed run left x.txt"
finish
