# Sourced by the tests of the installed library.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work QT_QPA_PLATFORM=offscreen

# use_prefix DIR: pkg-config knows the Paperway below DIR, by its place alone.
use_prefix() {
  PKG_CONFIG_PATH=$(dirname "$(find "$1" -name paperway.pc)")
  export PKG_CONFIG_PATH
}

# compile SOURCE OBJECT PACKAGE; link OBJECT PROGRAM PACKAGE
compile() { c++ -std=c++20 $flags -c "$1" -o "$2" $(pkg-config --cflags "$3"); }
link() { c++ $flags "$1" -o "$2" $(pkg-config --libs "$3"); }

# not COMMAND: the command fails, or the test does.
not() { if "$@"; then echo "should fail: $*" && exit 1; fi; }

# needs PROGRAM PATTERN: the program loads a library of that name.
needs() { [[ $(readelf -d "$1" | grep NEEDED) =~ $2 ]]; }

# write_report HOST: the host makes a report of the ledger.
write_report() {
  "$1" "$work/ledger.db" "$work/ledger.txt"
  grep -q "Sales ledger" "$work/ledger.txt"
}

# draw_report HOST: the host makes a picture of that report.
draw_report() {
  "$1" "$work/ledger.txt" "$work/page.png"
  [[ $(file "$work/page.png") =~ "PNG image data" ]]
  rm "$work/page.png"
  not "$1" "$work/ledger.txt" "$work/none/page.png" 2>/dev/null
}
