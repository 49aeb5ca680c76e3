#!/usr/bin/env bash
# Fails when a user-visible text of the code has no translation in the
# committed Chinese file: refreshes a copy of it from the code and lists the
# texts that come out unfinished (new in the code, or never translated).
set -euo pipefail
root=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$root/translations/skyconsole_zh_CN.ts" "$work/check_zh_CN.ts"
# The same scan as scripts/update-translations.sh.
(cd "$root" && lupdate -silent -no-obsolete -locations none -tr-function-alias tr+=Tr src \
  -ts "$work/check_zh_CN.ts" >/dev/null 2>&1)
missing=$(grep -B2 'type="unfinished"' "$work/check_zh_CN.ts" | sed -n 's|.*<source>\(.*\)</source>.*|\1|p' || true)
if [[ -n $missing ]]; then
  echo "Texts without a Chinese translation (run scripts/update-translations.sh and translate them):"
  echo "$missing"
  exit 1
fi
echo "every text has a Chinese translation"
