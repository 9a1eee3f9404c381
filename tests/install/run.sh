#!/usr/bin/env bash
# Installs the build to a folder of its own and builds hosts against it, by find_package and by plain
# pkg-config: without windows, with windows, and with the shared libraries where there are some.
#   run.sh SOURCE_DIR BUILD_DIR MAKE_LEDGER DESKTOP [COMPILE_FLAGS]
source=$1 build=$2 make_ledger=$3 desktop=$4 flags=${5:-}
. "$source/tests/install/lib.sh"
examples=$source/examples

# Another place than the build knows of.
cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/prefix"
"$make_ledger" "$work/ledger.db" 200
cd "$work"

check() {  # the programs of a way to build them
  write_report "$1/host"
  not needs "$1/host" 'Qt|cups|odbc'
  if [ "$desktop" = ON ]; then draw_report "$1/desktop"; fi
}

cmake -S "$source/tests/install" -B by-cmake -DCMAKE_PREFIX_PATH="$work/prefix" \
  -Dpaperway_STATIC=ON -DDESKTOP="$desktop" -DEXAMPLES="$examples" \
  -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build by-cmake -j 2 >/dev/null
check by-cmake
not needs by-cmake/host paperway

use_prefix prefix
mkdir by-pkg-config
for host in "host paperway-sqlite" "desktop paperway-desktop"; do
  set -- $host
  if [ "$desktop" != ON ] && [ "$1" = desktop ]; then continue; fi
  compile "$examples/$1.cpp" "$1.o" "$2"
  link "$1.o" "by-pkg-config/$1" "$2"
done
shared=$(find prefix -name 'libpaperway.so.*')
if [ -n "$shared" ]; then
  needs by-pkg-config/host 'libpaperway\.so\.[0-9]'
  export LD_LIBRARY_PATH=$(dirname "$work/${shared%%$'\n'*}")
  # Nothing but what the public headers declare.
  nm -DC --defined-only "$LD_LIBRARY_PATH/libpaperway.so" >exported
  grep -q 'paperway::Class1::Text_Rpt' exported
  not grep -E 'paperway::(FrmReport|TextBox|CodePage)::' exported
fi
check by-pkg-config
