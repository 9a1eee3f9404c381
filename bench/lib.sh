# Sourced by the comparisons of exports: the ledger of any size, and the time that a command takes.
title="Sales ledger"
subtitle="1 April 2025 to 31 March 2026"
statement="SELECT * FROM sales ORDER BY rowid"

build_bench() { # BUILD_DIR|"" TARGET...
  if [ -n "$1" ]; then
    build=$(cd "$1" && pwd)
  else
    build=$PWD/build/bench
    cmake --preset bench >&2
  fi
  cmake --build "$build" --target "${@:2}" >&2
  data=$build/bench-data
  mkdir -p "$data"
  # the page set-up of a new user, and A4
  export XDG_CONFIG_HOME=$data/config XDG_DATA_HOME=$data/share CUPS_SERVER=/nonexistent
  paperway=$build/apps/paperway/paperway
}

database() { # ROWS
  local file=$data/ledger-$1.db
  if [ ! -e "$file" ] || [ "$build/examples/make_ledger" -nt "$file" ]; then
    "$build/examples/make_ledger" "$file" "$1"
  fi
  cat "$file" >/dev/null # into the page cache
  echo "$file"
}

measured() { # NAME COMMAND...
  "$build/bench/measure" "${@:2}" | grep -E '^[0-9.]+ [0-9.]+ [0-9]+$' >>"$data/$1.times"
}

best() { sort -n -k 2 "$data/$1.times" | head -n 1; }
