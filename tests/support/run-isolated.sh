#!/usr/bin/env bash
# Runs one test binary with a private HOME and XDG folders so that settings and
# data never touch the user's, on the offscreen platform or under Xvfb.
set -u
mode=$1; shift
sandbox=$(mktemp -d "${TMPDIR:-/tmp}/skytest.XXXXXX")
trap 'rm -rf "$sandbox"' EXIT
export HOME="$sandbox/home" XDG_CONFIG_HOME="$sandbox/config" XDG_DATA_HOME="$sandbox/data" \
       XDG_CACHE_HOME="$sandbox/cache" XDG_RUNTIME_DIR="$sandbox/runtime"
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset SKYCONSOLE_CONFIG
# The news page's browser engine refuses to start as root inside its sandbox,
# and has no GPU to use here.
[ "$(id -u)" -eq 0 ] && export QTWEBENGINE_DISABLE_SANDBOX=1
export QTWEBENGINE_CHROMIUM_FLAGS="--disable-gpu"
if [ "$mode" = xvfb ]; then
  export QT_QPA_PLATFORM=xcb
  # The sanitizer run names a GL driver to keep loaded (scripts/test.sh);
  # only the test itself gets it, not the display server.
  xvfb-run -a -s "-screen 0 1400x900x24" \
    env ${SKYCONSOLE_GL_PRELOAD:+LD_PRELOAD="$SKYCONSOLE_GL_PRELOAD"} "$@"
  exit $?
fi
export QT_QPA_PLATFORM=offscreen
"$@"
