#!/usr/bin/env bash
# Makes the Debian packages of a build, looks into them, and builds a host from what they hold.
#   deb.sh SOURCE_DIR BUILD_DIR MAKE_LEDGER
source=$1 build=$2 make_ledger=$3 flags=
. "$source/tests/install/lib.sh"
cd "$work"

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work" >cpack.log 2>&1 || { cat cpack.log; exit 1; }
for package in libpaperway-dev paperway paperway-desktop paperway-web; do
  dpkg-deb -c "$package"_*.deb >"$package.list"
done

# holds PACKAGE PATH_PATTERN...; depends PACKAGE PATTERN: on what it needs, not on what it suggests.
holds() {
  local package=$1 path
  for path in "${@:2}"; do
    grep -qE " \./usr/$path\$" "$package.list" || { echo "$package lacks $path"; exit 1; }
  done
}
depends() { [[ $(dpkg-deb -f "$1"_*.deb Depends) =~ $2 ]]; }

holds libpaperway-dev include/paperway/class1.h 'lib/.*libpaperway\.a' 'lib/.*paperway-sqlite\.pc' \
  'lib/.*paperway-config\.cmake'
holds paperway bin/paperway 'lib/.*paperway/paperway-queues\.so'
holds paperway-desktop bin/paperway-desk include/paperway/desktop.h 'lib/.*libpaperway-desktop\.a'
holds paperway-web 'lib/.*paperway/paperway-web\.so' include/paperway/web.h \
  'lib/.*libpaperway-web\.a'
not grep -E 'desk|web|/bin/|/src/' libpaperway-dev.list
not depends libpaperway-dev 'qt|cups|sqlite'
not depends paperway qt
depends paperway libsqlite3
depends paperway libcups
depends paperway-desktop libqt6
not depends paperway-desktop webengine
depends paperway-web libqt6webengine

for package in *.deb; do dpkg-deb -x "$package" root; done
root/usr/bin/paperway --version
"$make_ledger" ledger.db 200
use_prefix root
compile "$source/examples/host.cpp" host.o paperway-sqlite
link host.o host paperway-sqlite
write_report ./host
root/usr/bin/paperway preview ledger.txt --picture page.png
[[ $(file page.png) =~ "PNG image data" ]]
echo '<p>printed' >page.html
root/usr/bin/paperway browse page.html --pdf page.pdf
[[ $(pdftotext page.pdf -) == printed* ]]
find root/usr/lib -name paperway-web.so -delete
not root/usr/bin/paperway browse page.html --pdf page.pdf
