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

# Without pdf_pages.cpp: clang 14 cannot read the headers of qpdf as C++20.
static_checks() {
  step "Static checks"
  cmake --preset tidy >/dev/null
  grep -oE '"file": "[^"]+"' build/tidy/compile_commands.json | cut -d '"' -f 4 |
    grep -E "^$PWD/(src|backends|apps)/" | grep -v /pdf_pages.cpp | sort -u |
    xargs -P "$jobs" -n 8 clang-tidy --quiet -p build/tidy 2>/dev/null
}

tests() {
  step "Tests: $1"
  ctest --preset "$1" -j "$jobs"
}

# Waits for one of the running targets; the first that fails ends the script, and the others with it.
declare -A fuzzing=()
fuzz_ended() {
  local pid rc=0
  wait -n -p pid "${!fuzzing[@]}" || rc=$?
  local name=${fuzzing[$pid]}
  unset "fuzzing[$pid]"
  local folder=build/dev/fuzz/$name
  if [ "$rc" -ne 0 ]; then
    cat "$folder/log"
    echo "$name failed; its log, and the input that breaks it, are in $folder"
    exit 1
  fi
  echo "$name: $(tail -n 1 "$folder/log")"
}

# Each target in a folder of its own, as many at once as there are cores.
fuzz() {
  local seed=${PAPERWAY_FUZZ_SEED:-$RANDOM}
  step "Fuzz, seed $seed: $*"
  local memory=${TMPDIR:-/tmp}
  [ ! -w /dev/shm ] || memory=/dev/shm
  trap 'kill "${!fuzzing[@]}" 2>/dev/null || true' EXIT
  local source name
  for source in tests/fuzz/fuzz_*.cpp; do
    [ ${#fuzzing[@]} -lt "$jobs" ] || fuzz_ended
    name=$(basename "$source" .cpp)
    mkdir -p "build/dev/fuzz/$name"
    (cd "build/dev/fuzz/$name" &&
      TMPDIR=$memory exec "../../tests/fuzz/$name" --seed "$seed" "$@" >log 2>&1) &
    fuzzing[$!]=$name
  done
  while [ ${#fuzzing[@]} -gt 0 ]; do fuzz_ended; done
}

usage() { sed -n '2,7s/^# \{0,1\}//p' "$0"; }

[ $# -le 1 ] || set -- "$*"
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
    build core -DCMAKE_BUILD_TYPE=Debug -DPAPERWAY_TESTS=OFF -DPAPERWAY_WERROR=ON
    static_checks
    fuzz --inputs 20000 --seconds 12
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
  -h | --help)
    usage
    ;;
  *)
    printf 'Unknown: %s\n\n' "$1" >&2
    usage >&2
    exit 2
    ;;
esac
