#!/usr/bin/env bash
# Installs what is missing, builds, starts the bundled cloud emulator on
# loopback and opens SkyConsole against it. The emulator stops with the app.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh
BUILD_DIR=${BUILD_DIR:-build}
DATA_DIR=${SKYCLOUD_DATA:-${XDG_DATA_HOME:-$HOME/.local/share}/skycloud}
PORT=${SKYCLOUD_PORT:-18080}
PUSH_PORT=${SKYCLOUD_PUSH_PORT:-18081}
cloud_out=$(mktemp)
"$BUILD_DIR/bin/skycloud" --port "$PORT" --push-port "$PUSH_PORT" --data "$DATA_DIR" ${SKYCLOUD_ARGS:-} >"$cloud_out" &
cloud=$!
trap 'kill $cloud 2>/dev/null; wait $cloud 2>/dev/null; rm -f "$cloud_out"' EXIT
# SkyConsole's first look at the network decides its start-up, so the
# emulator must be listening before the window opens.
for _ in $(seq 100); do
  grep -q listening "$cloud_out" && break
  kill -0 $cloud 2>/dev/null || { echo "skycloud did not start" >&2; exit 1; }
  sleep 0.1
done
# The news page's browser engine refuses its sandbox to root.
[ "$(id -u)" -eq 0 ] && export QTWEBENGINE_DISABLE_SANDBOX=1
export SKYCONSOLE_CLOUD_PRODUCTION_URL="http://127.0.0.1:$PORT"
export SKYCONSOLE_CLOUD_PUSH_ADDRESS="127.0.0.1:$PUSH_PORT"
"$BUILD_DIR/bin/skyconsole" "$@"
