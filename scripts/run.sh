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
# skysibling stands in for the suite's programs under the names and folders
# the launch table expects: the attached ones beside the configured
# application folder, the detached ones and the viewers beside it.
suite="$(cd "$BUILD_DIR" && pwd)/suite"
mkdir -p "$suite/hub" "$suite/vireo_map" "$suite/Carrowmere"
sibling="$(cd "$BUILD_DIR" && pwd)/bin/skysibling"
for program in hub/VireoPlan hub/VireoFly hub/Vireo_Check vireo_map/Vireo_Process.exe vireo_map/Vireo_Map.exe \
               vireo_map/vireo_viewer.exe Carrowmere/vireo_3dviewer.exe; do
  ln -sf "$sibling" "$suite/$program"
done
export SKYCONSOLE_LAUNCHER_APPLICATION_DIR=${SKYCONSOLE_LAUNCHER_APPLICATION_DIR:-$suite/hub}
export SKYCONSOLE_CLOUD_PRODUCTION_URL="http://127.0.0.1:$PORT"
export SKYCONSOLE_CLOUD_PUSH_ADDRESS="127.0.0.1:$PUSH_PORT"
"$BUILD_DIR/bin/skyconsole" "$@"
