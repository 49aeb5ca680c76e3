#!/usr/bin/env bash
# Runs every benchmark of an existing build tree and prints its result lines.
# Usage: bench/run.sh [BUILD_DIR]   (default ./build; nothing is built here)
set -u
build_dir=${1:-./build}
if [ ! -d "$build_dir/bin" ]; then
  echo "run.sh: no $build_dir/bin; build the tree first" >&2
  exit 1
fi
status=0
# A benchmark's own chatter (Qt's platform warnings, emulator logs) is shown
# only when it fails, so the output is the figures, one line each.
chatter=$(mktemp)
trap 'rm -f "$chatter"' EXIT
while IFS= read -r bench; do
  if ! "$bench" 2>"$chatter"; then
    status=1
    echo "run.sh: $(basename "$bench") failed:" >&2
    cat "$chatter" >&2
  fi
done < <(find "$build_dir/bin" -type f -name '*_bench' -perm -u+x | sort)
exit $status
