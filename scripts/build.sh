#!/usr/bin/env bash
# Configures and builds the tree into ${BUILD_DIR:-build}. With CI=true,
# compiler warnings fail the build.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=${BUILD_DIR:-build}
generator=()
command -v ninja >/dev/null && generator=(-G Ninja)
ci_options=()
if [[ "${CI:-}" == "true" ]]; then
  ci_options=(-DSKYCONSOLE_WERROR=ON)
fi
cmake -S . -B "$BUILD_DIR" "${generator[@]}" -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} "${ci_options[@]}" "$@"
cmake --build "$BUILD_DIR" -j"$(nproc)"
