#!/usr/bin/env bash
# Drives zopanel as a user would and checks its pictures, its JSON and its
# messages. Usage: check_zopanel.sh PATH/TO/zopanel WORK_FOLDER
set -euo pipefail
zopanel=$1
work=$2
rm -rf "$work"
mkdir -p "$work"

fail() {
  echo "FAIL: $*" >&2
  exit 1
}
expect_contains() {
  grep -qF -- "$2" <<<"$1" || fail "$3: '$2' not in: $1"
  echo "ok: $3"
}
# Runs a command that must end with exit status STATUS; what it printed is
# left in $message. Usage: fails_with STATUS WHAT COMMAND...
fails_with() {
  local want=$1 what=$2 status=0
  shift 2
  message=$("$@" 2>&1) || status=$?
  [ "$status" -eq "$want" ] || fail "$what gave exit status $status"
}
# Width and height of a PNG, from its header.
png_size() { od -An -tu1 -j16 -N8 "$1" | awk '{print $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8}'; }

cat >"$work/form.json" <<'JSON'
{"rows": [
  {"type": "bool", "name": "b", "legend": "Enabled", "default": true},
  {"type": "int", "name": "n", "legend": "Count", "min": 0, "max": 10, "default": 3},
  {"type": "int", "name": "m", "legend": "Mode", "values": {"Fast": 1, "Best": 2}, "choice": "2"},
  {"type": "text", "name": "t", "legend": "Title", "value": "Grüße"}
]}
JSON

"$zopanel" render "$work/form.json" -o "$work/form.png"
[ "$(od -An -tx1 -N8 "$work/form.png" | tr -d ' ')" = 89504e470d0a1a0a ] || fail "form.png is not a PNG"
read -r width height <<<"$(png_size "$work/form.png")"
echo "ok: rendered ${width}x$height"

"$zopanel" render "$work/form.json" -o - >"$work/piped.png"
cmp -s "$work/form.png" "$work/piped.png" || fail "-o - wrote other bytes than -o FILE"
[ ! -e ./- ] || fail "-o - wrote a file named -"
echo "ok: -o - writes the picture to standard output"
if command -v script >/dev/null; then
  # On a terminal the picture would be noise: refused, with the reason.
  message=$(script -qec "'$zopanel' render '$work/form.json' -o -" /dev/null 2>&1) && fail "-o - to a terminal was not refused"
  expect_contains "$message" "which is a terminal here" "-o - to a terminal is refused"
fi

"$zopanel" render - -o "$work/double.png" --scale 2 <"$work/form.json"
read -r width2 height2 <<<"$(png_size "$work/double.png")"
# Metrics round to whole pixels at each scale: about twice, within 2%.
near_double() { [ $((100 * $1)) -ge $((196 * $2)) ] && [ $((100 * $1)) -le $((204 * $2)) ]; }
near_double "$width2" "$width" && near_double "$height2" "$height" ||
  fail "scale 2 from standard input gave ${width2}x$height2, not about twice ${width}x$height"
echo "ok: scale 2 doubles the picture"

"$zopanel" render "$work/form.json" -o "$work/narrow.png" --width 200
read -r narrow _ <<<"$(png_size "$work/narrow.png")"
[ "$narrow" -lt "$width" ] || fail "--width 200 gave width $narrow"
echo "ok: --width narrows the panel"

values=$("$zopanel" values "$work/form.json")
# Rows come in the description's order (b, n, m, t), not sorted by name.
order=$(grep -o '"name": "[a-z]"' <<<"$values" | tr -d '\n')
[ "$order" = '"name": "b""name": "n""name": "m""name": "t"' ] || fail "values listed the rows as $order"
echo "ok: values lists the rows in the description's order"
expect_contains "$values" '"name": "m"' "values name the choice row"
expect_contains "$values" '"value": 2' "the choice shows its number"
expect_contains "$values" '"text": "3"' "the numeric box shows the count"
expect_contains "$values" '"value": "Grüße"' "text values keep their characters"

# Over a wide range the slider's thumb stands at the nearest of its steps;
# the value is the number the row shows.
printf '%s\n' '{"rows": [{"type": "int", "name": "wide", "legend": "Wide", "min": 0, "max": 1000000, "default": 1000}]}' >"$work/wide.json"
values=$("$zopanel" values "$work/wide.json")
expect_contains "$values" '"value": 1000,' "a wide range's value is the one its box shows"

cat >"$work/choosers.json" <<'JSON'
{"rows": [
  {"type": "colour", "name": "c", "legend": "Tint", "value": "1 0.5 0 1"},
  {"type": "font", "name": "f", "legend": "Caption font", "value": "DejaVu Sans"},
  {"type": "file", "name": "l", "legend": "LUT", "value": "/luts/film.cube"}
]}
JSON
values=$("$zopanel" values "$work/choosers.json")
expect_contains "$values" '"kind": "colour"' "a colour row is shown"
expect_contains "$values" '"value": "1 0.5 0 1"' "the colour row shows the colour described"
expect_contains "$values" '"kind": "font"' "a font row is shown"
expect_contains "$values" '"value": "DejaVu Sans"' "the font row shows the family described"
expect_contains "$values" '"kind": "file"' "a file row is shown"
expect_contains "$values" '"value": "/luts/film.cube"' "the file row shows the path described"

tree=$("$zopanel" tree "$work/form.json" --title Form)
expect_contains "$tree" '"class": "BuiltPanel"' "the tree starts at the panel"
expect_contains "$tree" '"class": "SliderParamHost"' "the tree holds the slider row"
expect_contains "$tree" '"class": "NumericTextBox"' "the tree holds the numeric box"

printf '{"rows": [\n  {"type": "bool"}\n  {"type": "int"}\n]}' >"$work/bad.json"
fails_with 1 "bad JSON" "$zopanel" render "$work/bad.json" -o "$work/bad.png"
expect_contains "$message" "line 3, column 3" "bad JSON is placed"
expect_contains "$message" "comma" "bad JSON is named"
[ ! -e "$work/bad.png" ] || fail "a picture was written for bad JSON"

fails_with 1 "a missing file" "$zopanel" values "$work/missing.json"
expect_contains "$message" "cannot read" "a missing file is reported"

fails_with 1 "a folder given as the description" "$zopanel" values "$work"
expect_contains "$message" "it is a folder" "a folder given as the description is reported"

# A panel taller than any picture: rendering says so, values still work.
{
  printf '{"rows": ['
  for i in $(seq 1 1300); do printf '%s{"type": "bool", "name": "b%d", "legend": "Row %d"}' "$([ "$i" -gt 1 ] && echo ,)" "$i" "$i"; done
  printf ']}\n'
} >"$work/tall.json"
fails_with 1 "a panel taller than a picture" "$zopanel" render "$work/tall.json" -o "$work/tall.png"
expect_contains "$message" "larger than a picture can be" "a panel taller than a picture is reported"
[ ! -e "$work/tall.png" ] || fail "a picture was written for the tall panel"
values=$("$zopanel" values "$work/tall.json")
expect_contains "$values" '"name": "b1300"' "the tall panel's values hold its last row"

fails_with 1 "a description without rows" "$zopanel" values - <<<'[1, 2]'
expect_contains "$message" "no list of rows" "a description without rows is reported"

# Number rows that cannot show one value are built as asked, and told of.
cat >"$work/ranges.json" <<'JSON'
{"rows": [
  {"type": "int", "name": "over", "legend": "Handles", "min": 0, "max": 10, "default": 50},
  {"type": "float", "name": "under", "legend": "Gain", "min": 0, "max": 1, "default": -3},
  {"type": "int", "name": "backwards", "legend": "Copies", "min": 10, "max": 0, "default": 5},
  {"type": "int", "name": "fine", "legend": "Count", "min": 0, "max": 10, "default": 3}
]}
JSON
fails_with 0 "number rows out of their ranges" "$zopanel" values "$work/ranges.json"
expect_contains "$message" 'row "over" (Handles): its default, 50, lies outside its range, 0 to 10' "a default over its range is told"
expect_contains "$message" 'row "under" (Gain): its default, -3, lies outside its range, 0 to 1' "a default under its range is told"
expect_contains "$message" 'row "backwards" (Copies): its range runs backwards, from 10 down to 0' "a backwards range is told"
grep -qF 'row "fine"' <<<"$message" && fail "a row within its range was told of"
echo "ok: a row within its range is not told of"
quiet=$("$zopanel" values "$work/form.json" 2>&1 >/dev/null)
[ -z "$quiet" ] || fail "a sound description gave messages: $quiet"
echo "ok: a sound description gives no messages"

fails_with 2 "a bad option" "$zopanel" render "$work/form.json" --scale zero
expect_contains "$message" "usage:" "a bad command line shows the usage"
echo "all zopanel checks passed"
