#!/usr/bin/env bash
# Installs the Debian 12 packages SkyConsole needs to build, run and test.
# Run as root (or through sudo). Safe to run again: apt skips what is present.
set -euo pipefail
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
PACKAGES=(
  build-essential cmake ninja-build ccache pkg-config
  qtbase5-dev qtbase5-dev-tools qttools5-dev qttools5-dev-tools
  libqt5sql5-sqlite libqt5serialport5-dev qtwebengine5-dev libqt5svg5-dev
  libcpp-httplib-dev libssl-dev zlib1g-dev libbrotli-dev
  xvfb xauth x11-apps socat python3-pyftpdlib rtklib
  libgeonames-dev libgeonames0
  libsodium-dev libsqlite3-dev
  fonts-dejavu-core
  desktop-file-utils appstream dpkg-dev qttranslations5-l10n fonts-noto-cjk
  tzdata
  libsqlite3-dev
  rapidjson-dev
  libsodium-dev
  qtpositioning5-dev libqt5positioning5
  libcurl4-openssl-dev
)
missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
