#!/usr/bin/env bash
# Checks the built Debian packages: their file lists are the expected ones
# (nothing outside /usr and /etc/skyconsole), the configuration file is a
# conffile, and the hub unpacked into a throw-away root finds its private
# library and answers --version.
# Usage: check-packages.sh PACKAGE_DIR VERSION
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
dir=$1
version=$2
fail() { echo "check-packages: $*" >&2; exit 1; }

files_of() { dpkg-deb -c "$1" | awk '$1 !~ /^d/ {print $6}' | sed 's|^\./|/|' | sort; }

for package in skyconsole skyconsole-emulators; do
  deb=$dir/${package}_${version}_amd64.deb
  [[ -f $deb ]] || fail "missing $deb"
  expected=$(grep -v '^#' "$here/$package.files" | sed '/^$/d' | sort)
  actual=$(files_of "$deb")
  # skybase joins the emulators once it is part of the tree.
  actual=$(grep -v '^/usr/bin/skybase$' <<<"$actual" || true)
  diff <(echo "$expected") <(echo "$actual") || fail "$package: unexpected file list"
  if grep -vE '^/usr/|^/etc/skyconsole/' <<<"$actual"; then fail "$package: files outside /usr"; fi
done

control=$(mktemp -d)
root=$(mktemp -d)
trap 'rm -rf "$control" "$root"' EXIT
dpkg-deb -e "$dir/skyconsole_${version}_amd64.deb" "$control/DEBIAN"
grep -qx /etc/skyconsole/deployment.ini "$control/DEBIAN/conffiles" || fail "deployment.ini is no conffile"
dpkg-deb -x "$dir/skyconsole_${version}_amd64.deb" "$root"
answer=$(env -u DISPLAY "$root/usr/bin/skyconsole" --version)
[[ $answer == "SkyConsole $version" ]] || fail "--version answered '$answer'"
found=$(ldd "$root/usr/bin/skyconsole" | awk '/libLmCarrowmereUI/ {print $3}')
[[ -n $found && $(readlink -f "$found") == "$root/usr/lib/x86_64-linux-gnu/skyconsole/libLmCarrowmereUI.so" ]] \
  || fail "the hub does not find its private library"
echo "check-packages: both packages as expected"
