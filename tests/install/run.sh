#!/usr/bin/env bash
# Installs the build to a folder of its own and builds a host against it, by find_package and by
# pkg-config.
#   run.sh SOURCE_DIR BUILD_DIR MAKE_LEDGER [COMPILE_FLAGS]
set -euo pipefail
source=$1 build=$2 make_ledger=$3 flags=${4:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" >/dev/null
"$make_ledger" "$work/ledger.db" 200
cd "$work"

cmake -S "$source/tests/install" -B by-cmake -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DHOST_SOURCE="$source/examples/host.cpp" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build by-cmake >/dev/null
by-cmake/host ledger.db one.txt

export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name paperway.pc)")
g++ -std=c++20 $flags "$source/examples/host.cpp" -o by-pkg-config \
  $(pkg-config --define-variable=prefix="$work/prefix" --cflags --libs paperway)
./by-pkg-config ledger.db two.txt

cmp one.txt two.txt
grep -q "Sales ledger" one.txt
