#!/usr/bin/env bash
# Builds the Debian packages skyconsole_<version>_amd64.deb and
# skyconsole-emulators_<version>_amd64.deb into ${BUILD_DIR:-build}/packages.
# Reuses the normal build folder: only the install prefix changes, so after
# scripts/build.sh nothing is compiled again.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=${BUILD_DIR:-build}
bash scripts/build.sh -DCMAKE_INSTALL_PREFIX=/usr
mkdir -p "$BUILD_DIR/packages"
(cd "$BUILD_DIR" && cpack -G DEB -B "$PWD/packages" >/dev/null)
rm -rf "$BUILD_DIR/packages/_CPack_Packages"
ls "$BUILD_DIR"/packages/*.deb
bash tests/packaging/check-packages.sh "$BUILD_DIR/packages" "$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD_DIR/CMakeCache.txt")"
