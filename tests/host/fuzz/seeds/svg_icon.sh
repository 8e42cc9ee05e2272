#!/usr/bin/env bash
# Seeds SvgIcon::render with the icon theme's symbolic SVGs (two leading bytes
# each for the side and the turn) and a few small documents.
#   seeds/svg_icon.sh CORPUS
set -euo pipefail
corpus=$1
n=0
for svg in /usr/share/icons/Adwaita/scalable/ui/*-symbolic.svg \
  /usr/share/icons/Adwaita/scalable/actions/{view-reveal,view-conceal,system-search,color-select}-symbolic.svg \
  /usr/share/icons/Adwaita/scalable-up-to-32/status/process-working-symbolic.svg; do
  [ -f "$svg" ] || continue
  { printf '\x10\x00'; cat "$svg"; } >"$corpus/theme-$n.svg"
  n=$((n + 1))
done
[ "$n" -gt 0 ] || echo "note: no icon theme under /usr/share/icons/Adwaita; seeding with small documents only" >&2
printf '\x08\x40<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 4 4"><rect width="2" height="4"/></svg>' \
  >"$corpus/half.svg"
printf '\x20\x00<svg xmlns="http://www.w3.org/2000/svg" width="8" height="4"><circle cx="4" cy="2" r="2" opacity=".5"/></svg>' \
  >"$corpus/wide.svg"
