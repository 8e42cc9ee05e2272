#!/usr/bin/env bash
# Seeds the picture loader with small JPEG, PNG and WebP files made from a
# wallpaper of gnome-backgrounds, in several kinds, and a small SVG drawing,
# each behind one leading byte that asks for the whole picture or a
# thumbnail.
#   seeds/image_load.sh CORPUS
set -euo pipefail
corpus=$1
source=/usr/share/backgrounds/gnome/wood-d.webp
[ -f "$source" ] || source="-size 48x36 plasma:fractal"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# shellcheck disable=SC2086 # the fallback source is several arguments
convert $source -resize 48x36! "$work/base.png"
convert "$work/base.png" -quality 80 "$work/plain.jpg"
convert "$work/base.png" -colorspace Gray "$work/grey.jpg"
convert "$work/base.png" -interlace JPEG "$work/progressive.jpg"
convert "$work/base.png" -orient RightTop "$work/turned.jpg"
convert "$work/base.png" -depth 16 "$work/deep.png"
convert "$work/base.png" PNG8:"$work/palette.png"
convert "$work/base.png" -interlace PNG "$work/interlaced.png"
convert "$work/base.png" -alpha set -channel A -evaluate set 50% +channel "$work/alpha.png"
convert "$work/base.png" -quality 70 "$work/lossy.webp"
convert "$work/base.png" -define webp:lossless=true "$work/lossless.webp"
cat >"$work/drawing.svg" <<'SVG'
<?xml version="1.0"?>
<svg xmlns="http://www.w3.org/2000/svg" width="48" height="36" viewBox="0 0 48 36">
  <linearGradient id="g"><stop offset="0" stop-color="#c03"/><stop offset="1" stop-color="#03c" stop-opacity="0.5"/></linearGradient>
  <rect width="48" height="36" fill="url(#g)"/><circle cx="24" cy="18" r="10" fill="#fc0"/>
  <path d="M4 32 L44 4" stroke="#fff" stroke-width="2"/>
</svg>
SVG
for file in "$work"/*; do
  name=$(basename "$file")
  { printf '\x00'; cat "$file"; } >"$corpus/whole-$name"
  { printf '\x10'; cat "$file"; } >"$corpus/thumb-$name"
done
