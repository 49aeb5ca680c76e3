#!/usr/bin/env bash
# Runs one libFuzzer program for a while and records how many inputs it
# tried in fuzz/last-local-run.txt (read by tools/fuzz_execs.sh). New inputs
# go to a scratch folder; a crash or time-out input is left next to it as
# crash-*/timeout-* for adding to the corpus once fixed.
# Usage: tools/fuzz_run.sh BUILD_FUZZ_DIR NAME [SECONDS]   (default 600)
#   BUILD_FUZZ_DIR is a tree configured with clang++, e.g.
#   cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DSKYCONSOLE_BUILD_TESTS=OFF -DSKYCONSOLE_BUILD_BENCH=OFF
#   cmake --build build-fuzz --target fuzz_NAME
set -u
cd "$(dirname "$0")/.."
root=$PWD
build_dir=$(realpath "$1") name=$2 seconds=${3:-600}
program=$build_dir/bin/fuzz_$name
scratch=$build_dir/fuzz-$name
mkdir -p "$scratch/new"
log=$scratch/run.log
# Statements of a hostile database are stopped after seconds; libFuzzer's
# own time-out only catches what escapes that.
(cd "$scratch" && QT_QPA_PLATFORM=offscreen "$program" -max_total_time="$seconds" -timeout=30 \
   -rss_limit_mb=4096 -max_len=65536 "$scratch/new" "$root/fuzz/corpus/$name") >"$log" 2>&1
status=$?
runs=$(grep -o 'Done [0-9]* runs in [0-9]* second' "$log" | tail -1 | awk '{print $2, $5}')
record=fuzz/last-local-run.txt
# Several targets may run at once; one of them updates the record at a time.
(
  flock 9
  touch "$record"
  grep -v "^$name " "$record" >"$record.new" || true
  echo "$name ${runs:-0 0} $(date -u +%Y-%m-%d) exit=$status" >>"$record.new"
  sort "$record.new" >"$record" && rm -f "$record.new"
) 9>"${TMPDIR:-/tmp}/skyconsole-fuzz-record.lock"
tail -3 "$log"
exit $status
