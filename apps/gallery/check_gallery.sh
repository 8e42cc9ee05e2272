#!/bin/sh
# Runs the gallery headless into a fresh folder and checks what it wrote:
# the index, a non-empty PNG for every page the index lists, and a summary
# with no failures.
set -eu
gallery=$1
out=$2

fail() {
  echo "check_gallery: $*" >&2
  exit 1
}

rm -rf "$out"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
status=0
"$gallery" --headless --out "$out" >"$log" 2>&1 || status=$?
cat "$log"
[ "$status" -eq 0 ] || fail "zogallery exited with status $status"

[ -s "$out/index.html" ] || fail "no index.html, or it is empty"
grep -q '^[0-9]* pages, [0-9]* written, 0 failed, in ' "$log" || fail "no summary line with 0 failed"

sections=$(grep -c '<section id="' "$out/index.html" || true)
pictures=$(grep -o '<img src="[^"]*"' "$out/index.html" | sed 's/<img src="//; s/"$//')
listed=$(printf '%s\n' "$pictures" | grep -c . || true)
[ "$sections" -ge 8 ] || fail "the index lists $sections pages; expected every widget family"
[ "$listed" -eq "$sections" ] || fail "$sections pages in the index but $listed pictures"

for picture in $pictures; do
  file="$out/$picture"
  [ -s "$file" ] || fail "$picture is listed but missing or empty"
  signature=$(head -c 8 "$file" | od -An -tx1 | tr -d ' \n')
  [ "$signature" = "89504e470d0a1a0a" ] || fail "$picture is not a PNG"
done

for family in buttons menus menus-open text-entry values groups scrolling standard-panel icons commands; do
  grep -q "<section id=\"$family\">" "$out/index.html" || fail "no page $family in the index"
done
# A wrong argument is refused with what was wrong, before anything is done.
status=0
message=$("$gallery" --headless --bogus 2>&1) || status=$?
[ "$status" -eq 2 ] || fail "an unknown argument gave exit status $status"
printf '%s\n' "$message" | grep -q "unknown argument '--bogus'" || fail "an unknown argument was not named: $message"
echo "check_gallery: $listed pages, each with its picture"
