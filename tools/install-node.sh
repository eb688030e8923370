#!/usr/bin/env bash
# Installs the packages of the DWG converter and of the font check from their lock files. Without Node.js or the
# registry the program works all the same and says that DWG files cannot be read.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v npm >/dev/null || { echo "npm is missing: DWG files will not be read" >&2; exit 0; }
for folder in tools/dwg2dxf tests/tools/font; do
  [ -f "$folder/package-lock.json" ] || continue
  stamp="$folder/node_modules/.installed"
  [ -f "$stamp" ] && [ "$stamp" -nt "$folder/package-lock.json" ] && continue
  if (cd "$folder" && npm ci --silent --no-audit --no-fund >&2); then
    touch "$stamp"
  else
    echo "the packages of $folder could not be installed" >&2
  fi
done
