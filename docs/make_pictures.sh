#!/usr/bin/env bash
# Makes the pictures of the docs from the sample ledger. Needs no display.
#
#   docs/make_pictures.sh [BUILD_DIR]        by default build/release
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(cd "${1:-build/release}" && pwd)
pictures=$PWD/docs/pictures
columns=$PWD/examples/ledger/columns.csv
paperway=$build/apps/paperway/paperway

# Nothing of the user's own settings and printers gets into the pictures.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export HOME=$work XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config CUPS_SERVER=127.0.0.1:1
unset QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME

"$build/examples/make_ledger" ledger.db 4000 >/dev/null
for pitch in 80 96 136; do
  "$paperway" text --db ledger.db --data "SELECT * FROM sales" --columns "$columns" \
    --out ledger$pitch.txt --title "Sales ledger" --title "Year 2025-26" --title "" --title "" \
    --title "By region and customer" --serial 1 --pitch $pitch
done
"$paperway" printers add "Dot matrix" "file:///dev/usb/lp0" >/dev/null

picture() { # NAME PITCH ARGUMENT...
  "$paperway" preview "ledger$2.txt" --picture "$pictures/$1.png" --size 1000,600 "${@:3}"
}

mkdir -p "$pictures"
"$paperway" stickers --save-preset 1 --line "Ledger 2026" --line "Shelf 7" --line "Keep for 8 years" \
  --length 16
"$paperway" stickers --picture "$pictures/stickers.png" --do JeweledButton1 --do TxNos=20
"$paperway" stickers --preset 1 --rows 5 --out stickers.txt
"$paperway" preview stickers.txt --picture "$pictures/sticker_sheet.png" --size 1000,600
picture pitch80 80
picture pitch96 96
picture pitch136 136
picture search 136 --page 2 --do Text4=Assam
picture setting 136 --do Label4
picture print 136 --do CmdPrint
picture paper 136 --do CmdPrint --do Ch17 --do CmdPaper
picture zoom 136 --do Command2
picture continuous 80 --do Check3
picture dark 136 --page 7 --dark
picture scale200 136 --scale 2

"$paperway" html --db ledger.db --data "SELECT * FROM sales LIMIT 300" --columns "$columns" \
  --out ledger.html --title "Sales ledger" --title "Year 2025-26" --align center --serial 1
"$paperway" browse ledger.html --picture "$pictures/browser.png" --size 1000,600
"$paperway" browse ledger.html --picture "$pictures/browser_preview.png" --size 1000,700 \
  --do JeweledButton1
