#!/usr/bin/env bash
# Installs the Debian 12 packages that building and testing zowidgets needs,
# as listed one per line in scripts/packages/*.txt. Runs as root, or through
# sudo when not root.
set -euo pipefail
cd "$(dirname "$0")"

mapfile -t packages < <(cat packages/*.txt | sed 's/#.*//' | tr -s ' \t' '\n' | sed '/^$/d' | sort -u)

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  as_root=(sudo)
fi

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done

if [ "${#missing[@]}" -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
