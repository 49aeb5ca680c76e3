#!/usr/bin/env bash
# Prints the figure fuzz_execs: executions per fuzz target in the replay CI
# runs (the committed seed corpus) and in the last local libFuzzer run
# (fuzz/last-local-run.txt, written by tools/fuzz_run.sh). Reported, no target.
# Usage: tools/fuzz_execs.sh [BUILD_DIR]   (default ./build, already built)
set -u
cd "$(dirname "$0")/.."
build_dir=${1:-./build}
status=0
for corpus in fuzz/corpus/*/; do
  name=$(basename "$corpus")
  replay=$build_dir/bin/fuzz_${name}_replay
  if [ ! -x "$replay" ]; then
    echo "fuzz_execs.sh: $replay not built" >&2
    status=1
    continue
  fi
  replayed=$(QT_QPA_PLATFORM=offscreen "$replay" "$corpus" 2>/dev/null | sed -n 's/^replayed \([0-9]*\) input.*/\1/p')
  echo "fuzz_execs $name ci replay: ${replayed:-0} runs"
  if local_run=$(grep "^$name " fuzz/last-local-run.txt 2>/dev/null); then
    read -r _ runs seconds day _ <<<"$local_run"
    echo "fuzz_execs $name last local run: $runs runs in $seconds s ($day)"
  fi
done
exit $status
