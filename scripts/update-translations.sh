#!/usr/bin/env bash
# Refreshes the committed translation files from the code: new texts appear
# in translations/skyconsole_zh_CN.ts marked unfinished (translate them with
# linguist or an editor), texts gone from the code are dropped. The template
# translations/skyconsole.ts lists every text without translations.
set -euo pipefail
cd "$(dirname "$0")/.."
# Tr: the translate helpers of the files whose texts live outside a class
# (their context is the class or namespace they serve).
lupdate -silent -no-obsolete -locations none -tr-function-alias tr+=Tr src \
  -ts translations/skyconsole.ts translations/skyconsole_zh_CN.ts 2> >(grep -v "lacks Q_OBJECT" >&2)
