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
while IFS= read -r bench; do
  "$bench" || status=1
done < <(find "$build_dir/bin" -type f -name '*_bench' -perm -u+x | sort)
exit $status
