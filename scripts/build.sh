#!/usr/bin/env bash
# Configures and builds the tree into ${BUILD_DIR:-build}.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=${BUILD_DIR:-build}
generator=()
command -v ninja >/dev/null && generator=(-G Ninja)
cmake -S . -B "$BUILD_DIR" "${generator[@]}" -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} "$@"
cmake --build "$BUILD_DIR" -j"$(nproc)"
