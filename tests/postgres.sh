#!/usr/bin/env bash
# A PostgreSQL server for tests: of its own, on a free port of the loopback address, in a folder
# that goes when it stops.
#
#   postgres.sh start FILE    starts it and leaves its ODBC connection string in FILE
#   postgres.sh stop FILE     stops it
set -euo pipefail

[ $# -eq 2 ] || { echo "usage: postgres.sh start|stop FILE" >&2; exit 2; }
file=$2
log=$file.log

fail() {
  echo "postgres.sh: $*" >&2
  [ ! -s "$log" ] || tail -n 20 "$log" >&2
  exit 1
}

# The server refuses to run as root.
as_postgres() {
  if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

programs() {
  dirname "$(command -v initdb || ls -v /usr/lib/postgresql/*/bin/initdb 2>/dev/null | tail -n 1)"
}

stop() {
  [ -e "$file.folder" ] || return 0
  local folder
  folder=$(cat "$file.folder")
  as_postgres "$bin/pg_ctl" stop -D "$folder/data" -m immediate >>"$log" 2>&1 || true
  rm -rf "$folder"
  rm -f "$file" "$file.folder"
}

start() {
  local folder port
  folder=$(as_postgres mktemp -d "${TMPDIR:-/tmp}/paperway-postgres.XXXXXX")
  mkdir -p "$(dirname "$file")"
  echo "$folder" >"$file.folder"
  echo paperway | as_postgres tee "$folder/password" >"$log"
  as_postgres "$bin/initdb" -D "$folder/data" -U paperway --pwfile="$folder/password" -A scram-sha-256 \
    -E UTF8 --locale=C --no-sync >>"$log" 2>&1 </dev/null || fail "initdb failed"
  for ((attempt = 0; attempt < 20; ++attempt)); do
    port=$((20000 + RANDOM % 20000))
    if as_postgres "$bin/pg_ctl" start -w -D "$folder/data" -l "$folder/server.log" -o \
      "-p $port -c listen_addresses=127.0.0.1 -c unix_socket_directories= -c fsync=off" \
      >>"$log" 2>&1 </dev/null; then
      echo "Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=$port;Database=postgres;Uid=paperway;Pwd=paperway" >"$file"
      return
    fi
    cat "$folder/server.log" >>"$log"
  done
  fail "the server does not start"
}

bin=$(programs)
[ -x "$bin/pg_ctl" ] || fail "there is no PostgreSQL server; install the package postgresql"
case $1 in
  start)
    stop # what an interrupted run has left
    start
    ;;
  stop) stop ;;
  *) fail "start or stop, not \"$1\"" ;;
esac
