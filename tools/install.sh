#!/usr/bin/env bash
# Installs what is missing of the packages named on the command line (Debian 12). Silent when nothing is.
set -euo pipefail

missing=()
for package in "$@"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "These packages are missing and only root can install them: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
