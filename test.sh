#!/usr/bin/env bash
# Installs what is missing, builds, and runs every check and test.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

step() { printf '\n== %s\n' "$*"; }

step "Packages"
need_packages $build_packages $run_packages $test_packages

sources() { git ls-files -- 'src/*' 'backends/*' 'apps/*' 'tests/*' 'examples/*' 'bench/*' | grep -E "$1"; }

step "Format"
sources '\.(h|cpp|c)$' | xargs clang-format --dry-run -Werror

step "Everything, with sanitizers, warnings as errors"
cmake --preset dev
cmake --build --preset dev

step "The core alone"
cmake --preset core -DPAPERWAY_TESTS=OFF -DPAPERWAY_WERROR=ON
cmake --build --preset core

step "Static checks"
cmake --preset tidy >/dev/null
grep -oE '"file": "[^"]+"' build/tidy/compile_commands.json | cut -d '"' -f 4 |
  grep -E "^$PWD/(src|backends|apps)/" | sort -u |
  xargs -P "$(nproc)" -n 8 clang-tidy --quiet -p build/tidy 2>/dev/null

step "Tests"
ctest --preset dev -j "$(nproc)"
