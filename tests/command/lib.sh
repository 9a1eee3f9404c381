# Sourced by the tests of the command: a folder of their own, and a few ways to look at an outcome.
set -uo pipefail
paperway=$1
make_ledger=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
export HOME=$work XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# expect EXIT_CODE TEXT COMMAND...: the command ends so, and says the text on either stream.
expect() {
  local code=$1 text=$2
  shift 2
  local said
  said=$("$@" 2>&1)
  local got=$?
  [ "$got" -eq "$code" ] || fail "$*: exit $got, not $code: $said"
  grep -qF -- "$text" <<<"$said" || fail "$*: does not say \"$text\": $said"
}

same() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }

listens_for_term() { # PID: of the command, not of the shell that is about to become it
  local caught
  [ "/proc/$1/exe" -ef "$paperway" ] || return
  caught=$(awk '/^SigCgt/ { print $2 }' "/proc/$1/status" 2>/dev/null)
  (((0x${caught:-0} & 0x4000) != 0))
}

# expect_stop COMMAND...: it hears a request to stop at once, whatever it waits for.
expect_stop() {
  "$@" 2>stop.txt &
  for _ in {1..2000}; do listens_for_term $! && break; done
  sleep 0.3
  SECONDS=0
  kill -TERM $!
  wait $!
  local code=$?
  [ $code -eq 143 ] && [ $SECONDS -le 3 ] || fail "$*: a stop ends with $code after $SECONDS s"
  grep -q stopped stop.txt || fail "$*: the stop's message: $(cat stop.txt)"
}

finish() {
  [ "$failures" -eq 0 ] && echo "all as expected"
  exit $((failures > 0))
}
