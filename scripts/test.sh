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
# Allocation stacks are taken with the fast frame-pointer unwinder (our code
# is built with frame pointers): full unwinding on every allocation made the
# emulators' start-up take a minute. A leak report therefore starts with the
# function that allocated, which is what a suppression names. No
# strict_string_checks: its strndup check misreads libxkbcommon's bounded
# copies under Xvfb.
export ASAN_OPTIONS="halt_on_error=1:detect_leaks=1"
# Mesa's software GL driver (the web engine's under Xvfb) is unloaded before
# the leak check, taking with it the globals that still reach its blocks;
# the tests that run under Xvfb load it from the start (run-isolated.sh), so
# it stays. It then precedes the sanitizer runtime in the library list, which
# is harmless for a library that is not instrumented.
swrast=/usr/lib/x86_64-linux-gnu/dri/swrast_dri.so
if [[ -f $swrast ]]; then
  export SKYCONSOLE_GL_PRELOAD=$swrast ASAN_OPTIONS="$ASAN_OPTIONS:verify_asan_link_order=0"
fi
export LSAN_OPTIONS="suppressions=$suppressions/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:suppressions=$suppressions/ubsan.supp"
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout 900
