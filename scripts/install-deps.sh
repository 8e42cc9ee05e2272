#!/usr/bin/env bash
# Installs the Debian 12 packages that building and testing zowidgets needs.
# Runs as root, or through sudo when not root.
set -euo pipefail

packages=(
  g++ make cmake ccache pkg-config
  libgtest-dev libgmock-dev
  libbenchmark-dev libboost-dev libsigc++-3.0-dev
)

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
