#!/usr/bin/env bash
# Installs what is missing, builds and runs the whole test suite.
#   scripts/test.sh             the suite on the normal build (build/)
#   scripts/test.sh --sanitize  the suite built with AddressSanitizer,
#                               LeakSanitizer and UndefinedBehaviorSanitizer
#                               (Debug, build-sanitize/); the first finding
#                               stops its test
set -euo pipefail
cd "$(dirname "$0")/.."
sanitize=false
if [[ "${1:-}" == "--sanitize" ]]; then
  sanitize=true
fi
bash scripts/install-deps.sh
if ! $sanitize; then
  bash scripts/build.sh
  BUILD_DIR=${BUILD_DIR:-build}
  ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout 300
  exit 0
fi

# The benchmarks measure speed, which means nothing under the sanitizers.
export BUILD_DIR=${SANITIZE_BUILD_DIR:-build-sanitize} BUILD_TYPE=Debug
bash scripts/build.sh -DSKYCONSOLE_SANITIZE=ON -DSKYCONSOLE_BUILD_BENCH=OFF
suppressions=$PWD/scripts/sanitize
# Whole allocation stacks (the system libraries have no frame pointers), so a
# suppression names the library a leak comes from, never a frame it shares
# with our code.
export ASAN_OPTIONS="halt_on_error=1:detect_leaks=1:strict_string_checks=1:fast_unwind_on_malloc=0"
export LSAN_OPTIONS="suppressions=$suppressions/lsan.supp:print_suppressions=0:fast_unwind_on_malloc=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:suppressions=$suppressions/ubsan.supp"
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout 900
