#!/usr/bin/env bash
# Installs what is missing, builds, and runs the tests.
#
#   ./test.sh          format, the sanitized build, every test of it
#   ./test.sh --full   also the release build with the fault kit, the core alone, static checks, and
#                      each fuzz target for some seconds
#   ./test.sh --fuzz   each fuzz target for a million inputs, the window for 200 walks: by hand
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

jobs=$(nproc)
step() { printf '\n== %s (%d s)\n' "$*" "$SECONDS"; }
sources() { git ls-files -- 'src/*' 'include/*' 'backends/*' 'apps/*' 'tests/*' 'examples/*' 'bench/*' | grep -E "$1"; }

packages() {
  step "Packages"
  need_packages $build_packages $run_packages $test_packages
}

format() {
  step "Format"
  sources '\.(h|cpp|c)$' | xargs clang-format --dry-run -Werror
}

build() {
  step "Build: $*"
  cmake --preset "$@"
  cmake --build --preset "$1"
}

static_checks() {
  step "Static checks"
  cmake --preset tidy >/dev/null
  grep -oE '"file": "[^"]+"' build/tidy/compile_commands.json | cut -d '"' -f 4 |
    grep -E "^$PWD/(src|backends|apps)/" | sort -u |
    xargs -P "$jobs" -n 8 clang-tidy --quiet -p build/tidy 2>/dev/null
}

tests() {
  step "Tests: $1"
  ctest --preset "$1" -j "$jobs"
}

# Each target with a seed of its own; an input that breaks one is kept in its folder.
fuzz() {
  local seed=${PAPERWAY_FUZZ_SEED:-$RANDOM}
  step "Fuzz, seed $seed: $*"
  [ -w /dev/shm ] && export TMPDIR=/dev/shm
  for target in build/dev/tests/fuzz/fuzz_*; do
    [ -x "$target" ] && [ -f "$target" ] && printf '%s\n' "$PWD/$target"
  done | xargs -P "$jobs" -I{} sh -c '
    folder=build/dev/fuzz/$(basename {}) && mkdir -p "$folder" && cd "$folder" &&
    {} --seed '"$seed $*"' >log 2>&1 || { cat log; echo "{} failed, see $folder"; exit 255; }
    echo "$(basename {}): $(tail -n 1 log)"'
}

case "${1-}" in
  "")
    packages
    format
    build dev
    tests dev
    ;;
  --full)
    packages
    format
    build dev
    build core -DPAPERWAY_TESTS=OFF -DPAPERWAY_WERROR=ON
    static_checks
    fuzz --inputs 20000 --seconds 20
    tests dev
    build release
    tests release
    ;;
  --fuzz)
    packages
    build dev
    fuzz --inputs 1000000
    step "Window"
    PAPERWAY_EVENT_SEEDS=200 QT_QPA_PLATFORM=offscreen build/dev/tests/test_qt --gtest_filter='*AnyEvents*'
    ;;
  *)
    sed -n '2,7s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
