# Shared by ./run and ./test: steps that print one line each and keep everything else in a log file.
# Sourced with the log's path in $log.

jobs=$(nproc)
mkdir -p "$(dirname "$log")"
: > "$log"

# step "What it does" command …: runs the command into the log; on failure shows the log's end and stops.
step() {
  local title=$1 started=$SECONDS
  shift
  printf '%-52s' "$title …"
  echo "=== $title: $*" >> "$log"
  if "$@" >> "$log" 2>&1 < /dev/null; then
    printf 'ok  %4ds\n' $((SECONDS - started))
  else
    printf 'FAILED\n\n'
    tail -n 40 "$log"
    # What failed, once more and last: where only an output's end is kept, this is what one needs of it.
    printf '\n'
    { grep -aE -A 6 ': Failure$|: error: |^FAIL!|^Error:|^\[  FAILED  \]|ERROR: AddressSanitizer|WARNING: ThreadSanitizer|runtime error:' "$log" || true; } |
      tail -n 30
    printf '\nThe full log: %s\n' "$log"
    exit 1
  fi
}

# configure PRESET: only when that has not been done; the build itself notices changed build files.
configure() {
  [ -f "build/$1/build.ninja" ] || step "Configuring $1" cmake --preset "$1"
}
