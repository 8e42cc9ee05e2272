#!/usr/bin/env bash
# One end-to-end case: starts a virtual X server on a free display, shows the
# zoe2e panel on it, drives it with xdotool and checks what the program saw
# and what the screen shows. Exits 77 (skipped) when the X tools are missing.
# Usage: run_e2e.sh PATH/TO/zoe2e CASE WORK_FOLDER
set -euo pipefail

program=$1
case_name=$2
work=$3

needed=(Xvfb xdotool)
case $case_name in
root_colour | eyedropper | magnifier | picker) needed+=(xsetroot) ;;
screenshot) needed+=(import compare) ;;
titles) needed+=(xprop) ;;
wm_late) needed+=(xprop openbox) ;;
form_menu_keys | tearoff) needed+=(xwininfo) ;;
form_menu_wm | form_tip_wm | form_menu_outside_wm | form_activate_wm) needed+=(openbox xwininfo xmessage) ;;
moved_wm | destroyed_wm) needed+=(openbox) ;;
scale) needed+=(identify) ;;
ipaddress) needed+=(xclip) ;;
export) needed+=(ffprobe) ;;
esac
for tool in "${needed[@]}"; do
  if ! command -v "$tool" >/dev/null; then
    echo "SKIP: $tool is not installed (scripts/packages/display.txt lists the packages)"
    exit 77
  fi
done

rm -rf "$work"
mkdir -p "$work"
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
}
trap cleanup EXIT

fail() {
  {
    echo "FAIL ($case_name): $*"
    echo "--- program stderr:"
    cat "$work/stderr" 2>/dev/null || true
  } >&2
  exit 1
}

# Xvfb picks a free display itself and writes its number on fd 5. The scale
# case gets a screen of twice the usual density and must find the scale from
# it; the others are told scale 1.
density=()
if [ "$case_name" = scale ]; then
  density=(-dpi 192)
  unset ZOWIDGETS_SCALE
else
  export ZOWIDGETS_SCALE=1
fi
# Settings the program writes stay with the case.
export ZOWIDGETS_CONFIG_DIR="$work/config"

Xvfb -displayfd 5 -screen 0 1280x800x24 "${density[@]}" -nolisten tcp -br 5>"$work/display" 2>"$work/xvfb.log" &
pids+=($!)
# The number is whole once its line ends: a display of two digits read half
# written would name another server.
display_written() { [ -s "$work/display" ] && [ "$(tail -c1 "$work/display" | od -An -tx1 | tr -d ' ')" = 0a ]; }
for _ in $(seq 100); do
  display_written && break
  sleep 0.1
done
[ -s "$work/display" ] || fail "Xvfb did not start: $(cat "$work/xvfb.log")"
DISPLAY=":$(head -n1 "$work/display")"
export DISPLAY
# A window manager, as on a desktop: it places, focuses and decorates the
# windows it manages, and leaves popups alone. Returns once it runs.
# Tried again when it gives up at once (a busy machine).
start_window_manager() {
  for _ in 1 2 3; do
    openbox --sm-disable >>"$work/wm.log" 2>&1 &
    pids+=($!)
    for _ in $(seq 50); do
      xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && return 0
      sleep 0.1
    done
  done
}
if [[ $case_name == *_wm ]]; then
  start_window_manager
fi

mkfifo "$work/commands"
# A program that died shows as a failed write, not as this script's death.
trap '' PIPE
extra=()
case $case_name in
form_*) extra=(--form) ;;
jsonform_*) extra=(--form-json) ;;
eyedropper | magnifier) extra=(--screen-tools) ;;
picker) extra=(--picker) ;;
list | tree | table) extra=(--lists) ;;
tabs | splitter) extra=(--containers) ;;
ipaddress) extra=(--gallery ipaddress) ;;
emoji) extra=(--gallery multiline) ;;
search) extra=(--gallery search) ;;
globprobe) extra=(--gallery globprobe) ;;
credentials) extra=(--gallery credentials) ;;
wizard) extra=(--gallery wizard) ;;
splittabs) extra=(--gallery splittabs) ;;
pageindex) extra=(--gallery page-index) ;;
hints) extra=(--gallery hints) ;;
spacedivider) extra=(--gallery spacedivider) ;;
fontbutton) extra=(--gallery fontbutton) ;;
dialogues | destroyed | destroyed_wm) extra=(--gallery dialogues) ;;
editor) extra=(--gallery editor) ;;
forms) extra=(--gallery forms) ;;
export) extra=(--gallery export) ;;
logger) extra=(--gallery logger) ;;
startup) extra=(--gallery startup) ;;
images) extra=(--gallery images) ;;
tablescroll) extra=(--gallery table) ;;
messages) extra=(--gallery messages) ;;
gauges) extra=(--gallery gauges) ;;
tearoff) extra=(--gallery colour) ;;
openfailed) extra=(--gallery buttons) ;;
files)
  # The files page browses a folder this case makes.
  mkdir -p "$work/files/renders"
  for name in 'clip 2.mov' 'clip 10.mov' notes.txt; do echo x >"$work/files/$name"; done
  export ZOGALLERY_FOLDER="$work/files"
  extra=(--gallery files)
  ;;
esac
if [ "$case_name" = logger ] || [ "$case_name" = startup ]; then
  # The desktop's opener is a recorder, and saves go to a documents folder
  # of the case's own.
  mkdir -p "$work/bin" "$work/docs" "$work/xdg"
  printf '#!/bin/sh\necho "$@" >>"%s/opened"\n' "$work" >"$work/bin/xdg-open"
  chmod +x "$work/bin/xdg-open"
  export PATH="$work/bin:$PATH"
  export XDG_CONFIG_HOME="$work/xdg"
  echo "XDG_DOCUMENTS_DIR=\"$work/docs\"" >"$work/xdg/user-dirs.dirs"
fi
if [ "$case_name" = openfailed ]; then
  # The desktop's opener finds nothing to open the link with, as its exit
  # status says.
  mkdir -p "$work/bin"
  printf '#!/bin/sh\necho "$@" >>"%s/opened"\nexit 3\n' "$work" >"$work/bin/xdg-open"
  chmod +x "$work/bin/xdg-open"
  export PATH="$work/bin:$PATH"
fi
"$program" --display "${extra[@]}" <"$work/commands" >"$work/answers" 2>"$work/stderr" &
pids+=($!)
exec 4>"$work/commands"

# Sends a command and prints the program's one-line answer. Commands are
# asked one at a time, so the answer is the line after those already there.
ask() {
  local answer=$(($(wc -l <"$work/answers") + 1))
  echo "$1" >&4 || fail "the program is gone"
  for _ in $(seq 100); do
    if [ "$(wc -l <"$work/answers")" -ge "$answer" ]; then
      sed -n "${answer}p" "$work/answers"
      return
    fi
    sleep 0.05
  done
  fail "no answer to '$1'"
}

number() { sed -E "s/.*\"$2\":(-?[0-9]+).*/\1/" <<<"$1"; }
# A box field of the state as "x y w h" (X's top-down coordinates).
box() { sed -E "s/.*\"$2\":\{\"x\":(-?[0-9]+),\"y\":(-?[0-9]+),\"w\":([0-9]+),\"h\":([0-9]+)\}.*/\1 \2 \3 \4/" <<<"$1"; }
# A string field of a JSON line (without escapes).
field() { sed -E 's/.*"'"$2"'":"([^"]*)".*/\1/' <<<"$1"; }
# The centre of a box field, as "x y".
centre() {
  local x y w h
  read -r x y w h <<<"$(box "$1" "$2")"
  echo "$((x + w / 2)) $((y + h / 2))"
}
# The Nth box (from 0) of an array field of boxes, as "x y w h".
nth_box() {
  sed -E "s/.*\"$2\":\[([^]]*)\].*/\1/" <<<"$1" | sed -E 's/\},\{/}\n{/g' | sed -n "$(($3 + 1))p" |
    sed -E 's/\{"x":(-?[0-9]+),"y":(-?[0-9]+),"w":([0-9]+),"h":([0-9]+)\}/\1 \2 \3 \4/'
}
row_centre() {
  local x y w h
  read -r x y w h <<<"$(nth_box "$1" "$2" "$3")"
  echo "$((x + w / 2)) $((y + h / 2))"
}
# Presses at X Y, moves to TO_X TO_Y in four steps as a hand would, and
# lets go there.
drag_to() {
  xdotool mousemove "$1" "$2" mousedown 1
  for step in 1 2 3 4; do
    xdotool mousemove $(($1 + ($3 - $1) * step / 4)) $(($2 + ($4 - $2) * step / 4))
    sleep 0.05
  done
  xdotool mouseup 1
}
# Drags from the centre of the box field FROM of a state line to the centre
# of its box field TO, and waits for the program to take it.
drag_between() {
  local x y to_x to_y
  read -r x y <<<"$(centre "$1" "$2")"
  read -r to_x to_y <<<"$(centre "$1" "$3")"
  drag_to "$x" "$y" "$to_x" "$to_y"
  sleep 0.3
}
text() { sed -E 's/.*"text":"(([^"\\]|\\.)*)".*/\1/' <<<"$1"; }
expect() {
  [ "$2" = "$3" ] || fail "$1: expected '$3', got '$2'"
  echo "ok: $1 = $3"
}
# The state of the first CLASS widget whose text is TEXT; empty when none.
widget_reading() {
  local index reply
  for index in $(seq 0 40); do
    reply=$(ask "widget $1 $index")
    grep -q '"error"' <<<"$reply" && return 0
    if [ "$(text "$reply")" = "$2" ]; then
      echo "$reply"
      return 0
    fi
  done
}
# The text of the first label whose text starts with TEXT; nothing if none.
label_starting() {
  local index reply
  for index in $(seq 0 20); do
    reply=$(ask "widget TextLabel $index")
    grep -q '"error"' <<<"$reply" && return 0
    case "$(text "$reply")" in "$1"*)
      text "$reply"
      return 0
      ;;
    esac
  done
}
# Clicks the middle of the CLASS widget whose text is TEXT.
click_reading() {
  local reply x y
  reply=$(widget_reading "$1" "$2")
  [ -n "$reply" ] || fail "no $1 reading '$2'"
  read -r x y <<<"$(centre "$reply" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
}
# Clicks at X Y and gives that window the keyboard, as a window manager
# would on the click; Xvfb runs none, so after another window had the
# keyboard nothing else would.
click_to_type() {
  xdotool mousemove "$1" "$2" click 1
  eval "$(xdotool getmouselocation --shell)"
  xdotool windowfocus --sync "$WINDOW"
  sleep 0.3
}
# Starts another program's window (xmessage) at GEOMETRY and sets `other` to
# it once it shows: a window made but not yet mapped cannot be activated.
another_program() {
  xmessage -geometry "$1" 'another program' &
  pids+=($!)
  for _ in $(seq 100); do
    other=$(xdotool search --onlyvisible --name '^xmessage$' | head -n1 || true)
    [ -n "$other" ] && return
    sleep 0.1
  done
  fail "the other program's window did not appear"
}
# The rows of the open menu in a form's state line; empty when none is open.
menu_rows() { sed -E 's/.*"menu":\[(.*)\]\}$/\1/' <<<"$1"; }
# Opens the form's menu with the pointer, leaving in `form` and `mode` the
# form's state and mode from before.
open_form_menu() {
  local x y
  form=$(ask form)
  mode=$(field "$form" mode)
  read -r x y <<<"$(centre "$form" menubutton)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  [ -n "$(menu_rows "$(ask form)")" ] || fail "the menu did not open"
}
# LABEL VALUE LOW HIGH: the value lies from LOW to HIGH.
expect_within() {
  [ "$2" -ge "$3" ] && [ "$2" -le "$4" ] || fail "$1: expected $3 to $4, got $2"
  echo "ok: $1 = $2"
}

state=$(ask state)
read -r probe_x probe_y probe_w probe_h <<<"$(box "$state" probe)"
# Shown once the probe's dark band covers the black desktop.
for _ in $(seq 100); do
  [ "$(ask "pixel $((probe_x + 1)) $((probe_y + 1))")" != '{"pixel":"#000000"}' ] && break
  sleep 0.05
done
centre_x=$((probe_x + probe_w / 2))
centre_y=$((probe_y + probe_h / 2))

case $case_name in
click)
  xdotool mousemove "$centre_x" "$centre_y" click 1
  sleep 0.3
  state=$(ask state)
  expect "presses" "$(number "$state" downs)" 1
  expect "releases" "$(number "$state" ups)" 1
  expect "click count" "$(number "$state" clicks)" 1
  # The probe's own coordinates, bottom-up.
  expect "press position" "$(sed -E 's/.*"lastDown":\[(-?[0-9]+),(-?[0-9]+)\].*/\1 \2/' <<<"$state")" \
    "$((probe_w / 2)) $((probe_h - 1 - probe_h / 2))"
  # Past the double-click time, so the next two clicks make a pair of their own.
  sleep 1
  xdotool click --repeat 2 --delay 80 1
  sleep 0.3
  state=$(ask state)
  expect "presses after a double click" "$(number "$state" downs)" 3
  expect "double click count" "$(number "$state" clicks)" 2
  # Buttons 4 and 5 are the wheel turned away from and towards the user.
  xdotool click --repeat 3 --delay 30 4 click 5
  sleep 0.3
  expect "wheel steps" "$(number "$(ask state)" wheel)" 2
  ;;
moved | moved_wm)
  # A window that something else moves (another program here; the window
  # manager in moved_wm) takes the pointer where it now shows.
  window=$(xdotool search --name '^e2e$' | head -n1)
  [ -n "$window" ] || fail "no e2e window"
  xdotool windowmove --sync "$window" 600 330
  sleep 0.3
  eval "$(xdotool getwindowgeometry --shell "$window")"
  for _ in $(seq 40); do
    read -r shown_x shown_y _ _ <<<"$(box "$(ask state)" window)"
    [ "$shown_x $shown_y" = "$X $Y" ] && break
    sleep 0.05
  done
  expect "where the program has its window" "$shown_x $shown_y" "$X $Y"
  state=$(ask state)
  read -r probe_x probe_y probe_w probe_h <<<"$(box "$state" probe)"
  xdotool mousemove $((probe_x + probe_w / 2)) $((probe_y + probe_h / 2)) click 1
  sleep 0.3
  state=$(ask state)
  expect "presses on the moved window" "$(number "$state" downs)" 1
  expect "press position" "$(sed -E 's/.*"lastDown":\[(-?[0-9]+),(-?[0-9]+)\].*/\1 \2/' <<<"$state")" \
    "$((probe_w / 2)) $((probe_h - 1 - probe_h / 2))"
  # The wheel goes where the pointer is, which the program knows only from X.
  xdotool click 5
  sleep 0.3
  expect "wheel steps on the moved window" "$(number "$(ask state)" wheel)" -1
  ;;
text)
  xdotool mousemove "$centre_x" "$centre_y" click 1
  sleep 0.2
  # xdotool types characters missing from the keyboard map by remapping a
  # spare key for a moment; typing slowly lets the program read each mapping.
  xdotool type --delay 100 'Hello, e2e! Grüße €'
  xdotool key Left
  sleep 0.3
  state=$(ask state)
  expect "typed text" "$(text "$state")" 'Hello, e2e! Grüße €'
  expect "last key (left arrow)" "$(number "$state" lastKey)" $((0x800004B))
  xdotool key ctrl+a
  sleep 0.2
  # 'a' with the Ctrl bit.
  expect "last key (ctrl+a)" "$(number "$(ask state)" lastKey)" $((0x61 | 0x2000000))
  ;;
drag)
  read -r window_x window_y _ _ <<<"$(box "$state" window)"
  read -r title_x title_y title_w title_h <<<"$(box "$state" title)"
  [ "$title_w" -gt 0 ] || fail "the panel has no title bar"
  grab_x=$((title_x + title_w / 2))
  grab_y=$((title_y + title_h / 2))
  xdotool mousemove "$grab_x" "$grab_y" mousedown 1
  for step in 1 2 3 4 5; do
    xdotool mousemove $((grab_x + step * 20)) $((grab_y + step * 10))
    sleep 0.05
  done
  xdotool mouseup 1
  sleep 0.3
  state=$(ask state)
  expect "window after the drag" "$(box "$state" window | cut -d' ' -f1,2)" "$((window_x + 100)) $((window_y + 50))"
  # The X window itself followed the panel.
  expect "desktop under the old title" "$(ask "pixel $((window_x + 1)) $((window_y + 1))")" '{"pixel":"#000000"}'
  ;;
root_colour)
  xsetroot -solid '#3366cc'
  sleep 0.2
  expect "desktop colour read through the toolkit" "$(ask 'pixel 5 5')" '{"pixel":"#3366cc"}'
  expect "desktop colour at the far corner" "$(ask 'pixel 1279 799')" '{"pixel":"#3366cc"}'
  ;;
screenshot)
  "$program" --shot "$work/headless.png" || fail "no headless picture"
  read -r window_x window_y window_w window_h <<<"$(box "$state" window)"
  import -window root -crop "${window_w}x${window_h}+${window_x}+${window_y}" +repage "$work/display.png"
  # Pixels differing by more than 1% in any channel; the tolerance allows a
  # handful from text drawn at a different moment, no more.
  differing=$(compare -alpha off -metric AE -fuzz 1% "$work/headless.png" "$work/display.png" "$work/difference.png" 2>&1 || true)
  allowed=$((window_w * window_h / 500))
  [[ "$differing" =~ ^[0-9]+$ ]] || fail "compare failed: $differing"
  [ "$differing" -le "$allowed" ] || fail "$differing pixels differ (at most $allowed allowed), see $work/difference.png"
  echo "ok: $differing of $((window_w * window_h)) pixels differ (at most $allowed allowed)"
  ;;
resize)
  read -r x y w h <<<"$(box "$state" window)"
  grown=$(ask grow)
  read -r new_x new_y new_w new_h <<<"$(box "$grown" window)"
  [ "$new_w" -gt "$w" ] || fail "the panel did not grow wider: $grown"
  [ "$new_h" -gt "$h" ] || fail "the panel did not grow taller: $grown"
  expect "left and bottom edges kept" "$new_x $((new_y + new_h))" "$x $((y + h))"
  sleep 0.3
  # The X window grew too, upward, and shows the panel in its new parts.
  black='{"pixel":"#000000"}'
  [ "$(ask "pixel $((new_x + new_w - 3)) $((new_y + new_h / 2))")" != "$black" ] || fail "new right part not shown"
  [ "$(ask "pixel $((new_x + new_w / 2)) $((new_y + 3))")" != "$black" ] || fail "new top part not shown"
  expect "desktop right of the window" "$(ask "pixel $((new_x + new_w)) $((new_y + new_h / 2))")" "$black"
  expect "desktop above the window" "$(ask "pixel $((new_x + new_w / 2)) $((new_y - 1))")" "$black"
  echo "ok: the window grew from ${w}x$h to ${new_w}x$new_h"
  ;;
resized)
  # A window resized by another program, as a tiling window manager would:
  # the panel takes the size with its top-left corner where X has it, and
  # paints its new parts.
  read -r x y w h <<<"$(box "$state" window)"
  xdotool windowsize "$(xdotool search --name '^e2e$')" $((w + 80)) $((h + 60))
  sleep 0.5
  read -r new_x new_y new_w new_h <<<"$(box "$(ask state)" window)"
  expect "the panel's size" "$new_w $new_h" "$((w + 80)) $((h + 60))"
  expect "its top-left corner" "$new_x $new_y" "$x $y"
  black='{"pixel":"#000000"}'
  [ "$(ask "pixel $((new_x + new_w - 3)) $((new_y + new_h - 3))")" != "$black" ] || fail "the new corner is not painted"
  expect "desktop right of the window" "$(ask "pixel $((new_x + new_w)) $((new_y + new_h / 2))")" "$black"
  ;;
wm_late)
  # A window manager started after the program leaves its windows as they
  # are, drawing their own title bars: no frame of its own round them.
  start_window_manager
  window=$(xdotool search --name '^e2e$')
  for _ in $(seq 50); do
    xprop -id "$window" _NET_FRAME_EXTENTS 2>/dev/null | grep -q '=' && break
    sleep 0.1
  done
  expect "the window's frame from the late window manager" "$(xprop -id "$window" _NET_FRAME_EXTENTS)" \
    "_NET_FRAME_EXTENTS(CARDINAL) = 0, 0, 0, 0"
  ;;
titles)
  # Each window carries its panel's title and the program's class, so that
  # window managers and tools find it.
  program_name=$(basename "$program")
  expect "windows titled e2e" "$(xdotool search --name '^e2e$' | wc -l)" 1
  expect "the e2e window's class" "$(xdotool search --classname "^$program_name\$" | grep -c "^$(xdotool search --name '^e2e$')$")" 1
  expect "the class name" "$(xprop -id "$(xdotool search --name '^e2e$')" WM_CLASS)" \
    "WM_CLASS(STRING) = \"$program_name\", \"${program_name^}\""
  ask 'retitle Night shot' >/dev/null
  sleep 0.3
  expect "windows titled Night shot" "$(xdotool search --name '^Night shot$' | wc -l)" 1
  expect "windows still titled e2e" "$(xdotool search --name '^e2e$' | wc -l)" 0
  ;;
clipboard)
  expect "copied" "$(ask 'copy Grüße 42')" '{"copied":"Grüße 42"}'
  # Another client reads it: the clipboard is the session's, not the process's.
  expect "pasted in a second program" "$(timeout 10 "$program" --display --paste)" 'Grüße 42'
  ;;
scale)
  expect "scale from the screen's density" "$(number "$state" scale)" 2
  "$program" --shot "$work/headless.png" || fail "no headless picture"
  read -r _ _ window_w window_h <<<"$(box "$state" window)"
  expect "window size against the same panel at scale 1" "$window_w $window_h" \
    "$(identify -format '%[fx:2*w] %[fx:2*h]' "$work/headless.png")"
  ;;
form_text | jsonform_text)
  read -r x y <<<"$(centre "$(ask form)" textbox)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.2
  xdotool type --delay 60 'Night shot'
  xdotool key Return
  sleep 0.3
  expect "title" "$(field "$(ask form)" title)" 'Night shot'
  ;;
form_slider | jsonform_slider)
  form=$(ask form)
  expect "count before" "$(field "$form" count)" 20
  drag_between "$form" thumb at80
  form=$(ask form)
  count=$(field "$form" count)
  [ "$count" -ge 78 ] && [ "$count" -le 82 ] || fail "count after the drag is $count, not about 80"
  expect "numeric box beside the slider" "$(field "$form" box)" "$count"
  ;;
form_inactive)
  # Gain takes input only while Unlock is ticked.
  form=$(ask form)
  expect "gain before" "$(field "$form" gain)" 5
  drag_between "$form" gainthumb gainat9
  expect "gain after a drag while locked" "$(field "$(ask form)" gain)" 5
  read -r x y <<<"$(centre "$form" unlock)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  drag_between "$form" gainthumb gainat9
  expect "gain after a drag once unlocked" "$(field "$(ask form)" gain)" 9
  ;;
form_menu | jsonform_menu)
  read -r x y <<<"$(centre "$(ask form)" menubutton)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  form=$(ask form)
  rows=$(menu_rows "$form")
  [ -n "$rows" ] || fail "the menu did not open: $form"
  third=$(sed -E 's/\},\{/}\n{/g' <<<"$rows" | sed -n 3p)
  [ -n "$third" ] || fail "the menu has fewer than three rows: $rows"
  read -r x y <<<"$(centre "{\"row\":$third}" row)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  form=$(ask form)
  expect "mode" "$(field "$form" mode)" 3
  expect "menu closed" "$(menu_rows "$form")" ""
  ;;
form_menu_focus_elsewhere)
  # Without a window manager, X leaves the keyboard with the window shown
  # last whatever the user clicks: a click in another of our windows takes
  # it, so a menu opened there stays open and is chosen from.
  e2e_window=$(xdotool search --name '^e2e$' | head -n1)
  form_window=$(xdotool search --name '^Form$' | head -n1)
  [ -n "$e2e_window" ] && [ -n "$form_window" ] || fail "the two windows were not found"
  xdotool windowfocus --sync "$e2e_window"
  open_form_menu
  expect "the keyboard's window after the click" "$(xdotool getwindowfocus)" "$form_window"
  sleep 0.4
  form=$(ask form)
  [ -n "$(menu_rows "$form")" ] || fail "the menu closed by itself"
  xdotool key Down Return
  sleep 0.4
  expect "the menu closed by Return" "$(menu_rows "$(ask form)")" ""
  ;;
form_menu_keys | form_menu_wm)
  # A menu leaves the keyboard with its panel, as a window manager gave it,
  # and the panel hears the keys: Down and Return choose in the menu, and
  # once it has closed Space opens it again.
  form_window=$(xdotool search --name '^Form$')
  xdotool windowactivate --sync "$form_window" 2>/dev/null || xdotool windowfocus --sync "$form_window"
  open_form_menu
  expect "the keyboard's window while the menu is open" "$(xdotool getwindowfocus)" "$form_window"
  menu_window=$(xdotool search --name "^$(basename "$program")\$" | head -n1)
  expect "the menu is left to itself by window managers" \
    "$(xwininfo -id "$menu_window" | sed -n 's/.*Override Redirect State: //p')" yes
  xdotool key Down Return
  sleep 0.4
  form=$(ask form)
  [ "$(field "$form" mode)" != "$mode" ] || fail "Down and Return in the menu left the mode at $mode"
  expect "menu closed" "$(menu_rows "$form")" ""
  # With the pointer away from the program, which does not decide it here.
  xdotool mousemove 1270 790
  sleep 0.2
  # The menu button keeps the focus: Space opens its menu again.
  xdotool key space
  sleep 0.4
  [ -n "$(menu_rows "$(ask form)")" ] || fail "Space after the menu closed did not reach the panel"
  # Escape closes it and leaves the button the keys; Down opens it again.
  xdotool key Escape
  sleep 0.4
  expect "menu closed by Escape" "$(menu_rows "$(ask form)")" ""
  xdotool key Down
  sleep 0.4
  [ -n "$(menu_rows "$(ask form)")" ] || fail "Down on the closed menu button did not open its menu"
  ;;
form_menu_outside | form_menu_outside_wm)
  # An open menu closes on a press on the desktop or, under a window manager,
  # on another program's window: presses the program is not told of.
  if [ "$case_name" = form_menu_outside_wm ]; then
    another_program +900+500
    eval "$(xdotool getwindowgeometry --shell "$other")"
    outside_x=$((X + WIDTH / 2))
    outside_y=$((Y + HEIGHT / 2))
  else
    outside_x=1270
    outside_y=790
  fi
  open_form_menu
  # Held as a hand holds it, longer than the program takes to look.
  xdotool mousemove "$outside_x" "$outside_y" mousedown 1
  sleep 0.15
  xdotool mouseup 1
  sleep 0.4
  form=$(ask form)
  expect "the menu after a press outside the program" "$(menu_rows "$form")" ""
  expect "the mode, which the press did not choose" "$(field "$form" mode)" "$mode"
  # A tap, as a touchpad gives: pressed and let go at once.
  open_form_menu
  xdotool mousemove "$outside_x" "$outside_y" click 1
  sleep 0.4
  form=$(ask form)
  expect "the menu after a tap outside the program" "$(menu_rows "$form")" ""
  expect "the mode, which the tap did not choose" "$(field "$form" mode)" "$mode"
  ;;
form_activate_wm)
  # The window manager makes windows active: the keys go to the active
  # window's own widgets, and an open menu closes when another program's
  # window is made active.
  e2e_window=$(xdotool search --name '^e2e$' | head -n1)
  form_window=$(xdotool search --name '^Form$' | head -n1)
  [ -n "$e2e_window" ] && [ -n "$form_window" ] || fail "the two windows were not found"
  read -r x y <<<"$(centre "$(ask form)" textbox)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  xdotool key ctrl+a
  xdotool type --delay 60 'Dusk'
  sleep 0.2
  keys_before=$(number "$(ask state)" keys)
  xdotool windowactivate --sync "$e2e_window"
  sleep 0.5
  xdotool type --delay 60 'xy'
  sleep 0.3
  state=$(ask state)
  [ "$(number "$state" keys)" -gt "$keys_before" ] || fail "the window made active heard no keys"
  expect "the keys reach the active window" "$(text "$state")" 'xy'
  xdotool windowactivate --sync "$form_window"
  sleep 0.5
  xdotool type --delay 60 ' sky'
  xdotool key Return
  sleep 0.3
  expect "back in the form, its text box has the keys again" "$(field "$(ask form)" title)" 'Dusk sky'
  another_program +900+500
  open_form_menu
  xdotool windowactivate --sync "$other"
  sleep 0.6
  expect "the menu after another program was made active" "$(menu_rows "$(ask form)")" ""
  expect "the mode, which nothing chose" "$(field "$(ask form)" mode)" "$mode"
  ;;
form_tip_wm)
  # A tip shown as the pointer rests on a row does not take the keyboard
  # from another program.
  another_program +900+60
  for _ in $(seq 100); do
    xdotool windowactivate "$other" 2>/dev/null || true
    [ "$(xdotool getwindowfocus)" = "$other" ] && break
    sleep 0.1
  done
  expect "the other program's window has the keyboard" "$(xdotool getwindowfocus)" "$other"
  read -r x y <<<"$(centre "$(ask form)" unlock)"
  xdotool mousemove "$x" "$y"
  sleep 0.1
  xdotool mousemove "$((x + 1))" "$y"
  tip=""
  for _ in $(seq 100); do
    tip=$(xdotool search --onlyvisible --name "^$(basename "$program")\$" | head -n1 || true)
    [ -n "$tip" ] && break
    sleep 0.1
  done
  [ -n "$tip" ] || fail "no tip appeared over the Unlock row"
  expect "the tip is left to itself by window managers" \
    "$(xwininfo -id "$tip" | sed -n 's/.*Override Redirect State: //p')" yes
  expect "the keyboard's window with the tip shown" "$(xdotool getwindowfocus)" "$other"
  ;;
eyedropper)
  xsetroot -solid '#3a7bd5'
  sleep 0.2
  read -r dropper_x dropper_y <<<"$(centre "$(ask dropper)" dropper)"
  xdotool mousemove "$dropper_x" "$dropper_y" click 1
  sleep 0.3
  expect "capturing after a click on the dropper" "$(number "$(ask dropper)" capturing)" 1
  # Out on the desktop, where the program has no window of its own.
  xdotool mousemove 1000 150
  sleep 0.3
  dropper=$(ask dropper)
  # Scale 1: right of the pointer by two thirds of a row, top level with it.
  expect "lens beside the pointer" "$(box "$dropper" lens | cut -d' ' -f1,2)" "1015 151"
  xdotool click 1
  sleep 0.3
  dropper=$(ask dropper)
  expect "capturing after the pick" "$(number "$dropper" capturing)" 0
  expect "colours picked" "$(number "$dropper" picks)" 1
  expect "colour picked from the desktop" "$(field "$dropper" picked)" '#3a7bd5'
  # An area dragged out towards the bottom left, on another colour.
  xsetroot -solid '#c0ffee'
  sleep 0.2
  xdotool mousemove "$dropper_x" "$dropper_y" click 1
  sleep 0.3
  xdotool mousemove 900 200 mousedown 1
  for step in 1 2 3 4; do
    xdotool mousemove $((900 - step * 10)) $((200 + step * 8))
    sleep 0.05
  done
  xdotool mouseup 1
  sleep 0.3
  dropper=$(ask dropper)
  expect "colours picked" "$(number "$dropper" picks)" 2
  expect "colour of the dragged area" "$(field "$dropper" picked)" '#c0ffee'
  expect "capturing after the drag" "$(number "$dropper" capturing)" 0
  ;;
picker)
  xsetroot -solid '#d4502a'
  sleep 0.2
  read -r x y <<<"$(centre "$(ask picker)" dropper)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  # Out on the desktop, where the program has no window of its own.
  xdotool mousemove 1000 150
  sleep 0.3
  xdotool click 1
  sleep 0.4
  picker=$(ask picker)
  # The component boxes round, so they show the picked channels exactly; the
  # hex box truncates, so a colour that went through hue, saturation and
  # value may show one less there.
  expect "picker colour after a pick from the desktop" \
    "$(field "$picker" red) $(field "$picker" green) $(field "$picker" blue)" "212 80 42"
  ;;
magnifier)
  # Red lines every 16 pixels on blue.
  xsetroot -mod 16 16 -fg '#ff0000' -bg '#0000ff'
  sleep 0.2
  xdotool mousemove 900 300
  sleep 0.2
  opened=$(ask 'magnify 4')
  expect "level" "$(number "$opened" level)" 4
  read -r window_x window_y _ window_h <<<"$(box "$opened" window)"
  expect "window's bottom-left corner at the pointer" "$window_x $((window_y + window_h - 1))" "900 300"
  xdotool mousemove 300 150
  sleep 0.5
  shown=$(ask magnifier)
  [ "$(number "$shown" grabs)" -gt 3 ] || fail "the magnifier does not tick: $shown"
  colours=$(sed -E 's/.*"row":\[(.*)\]\}$/\1/' <<<"$shown" | tr -d '"' | tr ',' '\n')
  marker=$(number "$shown" marker)
  expect "view centre against the pixel under the pointer" "$(sed -n "$((marker + 1))p" <<<"$colours")" \
    "$(field "$shown" pointer)"
  # Each one-pixel line shows 4 pixels wide, and the lines 64 apart.
  runs=$(awk '
    $1 == "#ff0000" { if (!inside) { start = NR; inside = 1 } next }
    inside { print start, NR - start; inside = 0 }
    END { if (inside) print start, "edge" }' <<<"$colours")
  [ "$(wc -l <<<"$runs")" -ge 2 ] || fail "fewer than two lines in the view: $runs"
  previous=
  while read -r start length; do
    [ "$start" -eq 1 ] || [ "$length" = edge ] || [ "$length" -eq 4 ] || fail "a line $length pixels wide at $start: $runs"
    [ -z "$previous" ] || [ "$previous" -eq 1 ] || [ $((start - previous)) -eq 64 ] ||
      fail "lines $((start - previous)) pixels apart: $runs"
    previous=$start
  done <<<"$runs"
  echo "ok: lines at $(tr '\n' ' ' <<<"$runs")"
  ;;
list)
  lists=$(ask lists)
  read -r x y <<<"$(row_centre "$lists" listRows 1)"
  xdotool mousemove "$x" "$y" click 1
  read -r x y <<<"$(row_centre "$lists" listRows 3)"
  xdotool keydown shift mousemove "$x" "$y" click 1 keyup shift
  sleep 0.3
  expect "a click, then a Shift-click" "$(field "$(ask lists)" selected)" "1 2 3"
  read -r x y <<<"$(row_centre "$lists" listRows 0)"
  xdotool keydown ctrl mousemove "$x" "$y" click 1 keyup ctrl
  sleep 0.3
  expect "a Ctrl-click adds a row" "$(field "$(ask lists)" selected)" "0 1 2 3"
  xdotool key Down key shift+Down
  sleep 0.3
  expect "Down, then Shift-Down" "$(field "$(ask lists)" selected)" "1 2"
  xdotool key End
  sleep 0.3
  expect "End" "$(field "$(ask lists)" selected)" "199"
  ;;
table)
  lists=$(ask lists)
  read -r x y w h <<<"$(nth_box "$lists" tableRows 2)"
  # Inside the first column, which takes the larger share of the row.
  xdotool mousemove $((x + 12)) $((y + h / 2)) click 1
  sleep 0.3
  expect "a click makes a cell current" "$(field "$(ask lists)" tableCurrent)" "0 2"
  xdotool type --delay 80 'Wide'
  xdotool key Return
  sleep 0.3
  lists=$(ask lists)
  expect "typing, then Return, stores the cell" "$(field "$lists" shot2)" "Wide"
  expect "the editor closed" "$(sed -E 's/.*"tableEditing":(true|false).*/\1/' <<<"$lists")" "false"
  xdotool key Tab key Return
  xdotool type --delay 80 'Reel 9'
  xdotool key Escape
  sleep 0.3
  lists=$(ask lists)
  expect "Escape drops an edit" "$(field "$lists" reel2)" "Reel 3"
  expect "one store only" "$(number "$lists" tableStores)" 1
  xdotool key Down
  sleep 0.3
  expect "Down moves the current cell" "$(field "$(ask lists)" tableCurrent)" "1 3"
  ;;
tree)
  lists=$(ask lists)
  expect "rows of a closed tree" "$(number "$lists" treeRows)" 3
  read -r x y w h <<<"$(nth_box "$lists" treeRowBoxes 0)"
  # The arrow lies in the row's first indent step, at its left.
  xdotool mousemove $((x + h / 2 + 2)) $((y + h / 2)) click 1
  sleep 0.3
  lists=$(ask lists)
  expect "the arrow opens the reel" "$(field "$lists" opened)" "1"
  expect "rows of the open tree" "$(number "$lists" treeRows)" 6
  read -r x y <<<"$(row_centre "$lists" treeRowBoxes 4)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  expect "a click on a row selects it" "$(field "$(ask lists)" treeSelected)" "2"
  xdotool key Right
  sleep 0.3
  expect "Right opens it" "$(field "$(ask lists)" opened)" "1 2"
  xdotool key Right key Down
  sleep 0.3
  expect "into its children, and down" "$(field "$(ask lists)" treeSelected)" "2/2"
  xdotool key Left
  sleep 0.3
  expect "Left goes to the parent" "$(field "$(ask lists)" treeSelected)" "2"
  xdotool key Left
  sleep 0.3
  expect "Left again closes it" "$(field "$(ask lists)" opened)" "1"
  ;;
tabs)
  shown=$(ask containers)
  expect "the first tab shows" "$(number "$shown" tab)" 0
  read -r x y <<<"$(row_centre "$shown" tabs 1)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  expect "a click on the second tab" "$(number "$(ask containers)" tab)" 1
  xdotool key Left
  sleep 0.3
  expect "Left on the focused tab row" "$(number "$(ask containers)" tab)" 0
  xdotool key ctrl+Tab
  sleep 0.3
  expect "Ctrl+Tab" "$(number "$(ask containers)" tab)" 1
  ;;
splitter)
  shown=$(ask containers)
  left=$(number "$shown" left)
  right=$(number "$shown" right)
  read -r x y <<<"$(centre "$shown" bar)"
  drag_to "$x" "$y" $((x + 40)) "$y"
  sleep 0.3
  shown=$(ask containers)
  expect "the left box grew by the drag" "$(number "$shown" left)" $((left + 40))
  expect "the right box gave the same" "$(number "$shown" right)" $((right - 40))
  read -r x y <<<"$(centre "$shown" bar)"
  drag_to "$x" "$y" $((x - 800)) "$y"
  sleep 0.3
  shown=$(ask containers)
  expect "a drag far left stops at the left box's least width" "$(number "$shown" left)" "$(number "$shown" leftMin)"
  ;;
credentials)
  # The connection form: address and user name filled in, the password box
  # (TextBox 2) empty, so Connect (PushButton 0) does nothing until a
  # password is typed.
  read -r x y <<<"$(centre "$(ask 'widget PushButton 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  expect "Connect waits for a password" "$(field "$(ask 'widget TextLabel 0')" text)" \
    'Type a password to enable Connect'
  read -r x y <<<"$(centre "$(ask 'widget TextBox 2')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.2
  xdotool type --delay 60 's3cret'
  sleep 0.3
  expect "the password box holds what was typed" "$(field "$(ask 'widget TextBox 2')" text)" 's3cret'
  expect "the status says Connect is ready" "$(field "$(ask 'widget TextLabel 0')" text)" 'Ready to connect'
  read -r x y <<<"$(centre "$(ask 'widget PushButton 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  status=$(field "$(ask 'widget TextLabel 0')" text)
  case "$status" in
  "Connecting: editor at media.example.org, port 8443"*", with a password") echo "ok: Connect sends the request" ;;
  *) fail "Connect sends the request: got '$status'" ;;
  esac
  case "$status" in *s3cret*) fail "the password shows in the status line" ;; esac
  ;;
fontbutton)
  # The font button page: a titled button on a bold Liberation Serif, and
  # a label showing the font's text form.
  button=$(ask 'widget FontChooserButton 0')
  expect "the button shows its family" "$(field "$button" text)" 'Liberation Serif'
  expect "in that family" "$(field "$button" family)" 'Liberation Serif'
  read -r x y <<<"$(centre "$button" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.5
  filter=$(ask 'widget TextBox 0')
  grep -q '"box"' <<<"$filter" || fail "the chooser did not open: $filter"
  read -r fx fy <<<"$(centre "$filter" box)"
  xdotool mousemove "$fx" "$fy" click 1
  sleep 0.2
  xdotool type --delay 60 'noto mono'
  sleep 0.3
  row=$(ask 'widget TreeRow 0')
  grep -q '"box"' <<<"$row" || fail "the filter left no row: $row"
  grep -q '"error"' <<<"$(ask 'widget TreeRow 1')" || fail "the filter left more than Noto Mono"
  read -r rx ry <<<"$(centre "$row" box)"
  xdotool mousemove "$rx" "$ry" click 1
  sleep 0.3
  button=$(ask 'widget FontChooserButton 0')
  expect "the picked family is on the button" "$(field "$button" text)" 'Noto Mono'
  expect "the legend is drawn in it" "$(field "$button" family)" 'Noto Mono'
  # Bold, 24 points, the new family.
  grep -q ',1,24,Noto Mono"' <<<"$(ask 'widget TextLabel 0')" || fail "the label missed the change: $(ask 'widget TextLabel 0')"
  # A click elsewhere closes the chooser; the wheel over the button then
  # steps to the next family, Noto Music, whose faces have no Latin letters:
  # its name is drawn in the interface's font.
  xdotool mousemove 1200 700 click 1
  sleep 0.3
  xdotool mousemove "$x" "$y" click 5
  sleep 0.5
  button=$(ask 'widget FontChooserButton 0')
  next=$(field "$button" text)
  expect "the wheel stepped to the next family" "$next" 'Noto Music'
  expect "a family without Latin letters is named in the interface's font" "$(field "$button" family)" 'DejaVu Sans'
  ;;
search)
  # The search page: a search box, a filter box and a magnifier button whose
  # drop-down searches; each reports what it found among ten clip names in
  # the label below it (TextLabel 0, 1 and 3).
  click_widget() {
    read -r x y <<<"$(centre "$(ask "widget $1 $2")" box)"
    xdotool mousemove "$x" "$y" click 1
    sleep 0.2
  }
  click_widget TextBox 0
  xdotool type --delay 60 'harbour'
  xdotool key Return
  sleep 0.3
  expect "Return in the search box searches" "$(field "$(ask 'widget TextLabel 0')" text)" \
    '2 found: Reel 2 harbour, Drone harbour'
  click_widget TextBox 1
  xdotool type --delay 60 'interview'
  xdotool key Return
  sleep 0.3
  expect "the filter finds the interviews" "$(field "$(ask 'widget TextLabel 1')" text)" \
    '2 found: Reel 1 interview, Reel 2 interview'
  # The filter's button is now the clear button: a press empties the box.
  read -r x y w h <<<"$(box "$(ask 'widget TextFilterWidget 0')" box)"
  xdotool mousemove $((x + w - h / 2)) $((y + h / 2)) click 1
  sleep 0.3
  expect "the clear button empties the filter" "$(field "$(ask 'widget TextBox 1')" text)" ''
  click_widget DropDownSearchPanelButton 0
  sleep 0.3
  xdotool type --delay 60 'drone'
  xdotool key Return
  sleep 0.3
  expect "the drop-down's search reaches its target" "$(field "$(ask 'widget TextLabel 3')" text)" \
    '2 found: Drone harbour, Drone coastline'
  grep -q '"error"' <<<"$(ask 'widget DropDownSearchPanel 0')" || fail "the drop-down is still open"
  ;;
emoji)
  # The note page opens with its editor beside it: a MultiLineTextBoxPanel
  # holding the note, whose smiley button opens the emoji picker.
  note=$(field "$(ask 'widget MultiLineTextBox 0')" text)
  expect "the editor holds the note" "$note" 'Scene 12, take 3\u000aSound: wind noise on the boom'
  read -r x y <<<"$(centre "$(ask 'widget MultiLineTextBox 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.2
  xdotool key ctrl+Home
  read -r x y <<<"$(centre "$(ask 'widget DropDownButton2 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.5
  cell=$(ask 'widget EmojiView 2')
  grep -q '"box"' <<<"$cell" || fail "the picker did not open: $cell"
  read -r x y <<<"$(centre "$cell" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.3
  expect "the picked emoji went in at the caret" "$(field "$(ask 'widget MultiLineTextBox 0')" text)" \
    "$(printf '\xf0\x9f\x98\x84')Scene 12, take 3\\u000aSound: wind noise on the boom"
  # The box has the keyboard again: typing goes on at once.
  xdotool key ctrl+End
  xdotool type --delay 80 ' (wind)'
  sleep 0.3
  expect "typing right after the pick" "$(field "$(ask 'widget MultiLineTextBox 0')" text)" \
    "$(printf '\xf0\x9f\x98\x84')Scene 12, take 3\\u000aSound: wind noise on the boom (wind)"
  # By keyboard alone: Tab to the smiley, Space opens the picker and gives
  # it the keys, Tab into its search, "dog" and Return narrow it (the
  # keyboard going to the search's clear button), Tab past the categories
  # to the grid, Right and Return pick its first emoji, put in at the end
  # of the note. Escape first closes the
  # picker still open from the pick above, the keys staying in the box.
  xdotool key Escape
  sleep 0.3
  grep -q '"error"' <<<"$(ask 'widget EmojiView 0')" || fail "Escape left the picker open"
  before=$(field "$(ask 'widget MultiLineTextBox 0')" text)
  xdotool key Tab
  sleep 0.2
  xdotool key space
  sleep 0.5
  xdotool key Tab
  xdotool type --delay 80 dog
  xdotool key Return
  sleep 0.4
  grep -q '"box"' <<<"$(ask 'widget EmojiView 0')" || fail "the search left no emoji"
  grep -q '"error"' <<<"$(ask 'widget EmojiView 8')" || fail "the search for dog did not narrow the picker"
  xdotool key Tab Tab
  sleep 0.2
  xdotool key Right Return
  sleep 0.4
  after=$(field "$(ask 'widget MultiLineTextBox 0')" text)
  [ "${after#"$before"}" != "$after" ] && [ -n "${after#"$before"}" ] ||
    fail "no emoji was picked by keyboard: '$after'"
  echo "ok: picked by keyboard: ${after#"$before"}"
  # Ctrl+Return enters the text: the editor goes and the page shows the
  # note's first line.
  xdotool key ctrl+Return
  sleep 0.3
  grep -q '"error"' <<<"$(ask 'widget MultiLineTextBox 0')" || fail "the editor is still open"
  expect "the note shows its new first line" "$(field "$(ask 'widget TextLabel 0')" text)" \
    "$(printf '\xf0\x9f\x98\x84')Scene 12, take 3..."
  ;;
ipaddress)
  # The gallery's page: a camera address without a port, a stream address
  # with one. Each entry's text boxes are CustomTextBox widgets, four and
  # five; the labels under them (TextLabel 1 and 3) show what Return gave.
  [ "$(field "$(ask 'widget CustomTextBox 8')" text)" = 554 ] || fail "the gallery page did not open: $(ask 'widget CustomTextBox 8')"
  texts() {
    local all="" n
    for n in $(seq "$1" "$2"); do all+="$(field "$(ask "widget CustomTextBox $n")" text)|"; done
    echo "$all"
  }
  click_box() {
    read -r x y <<<"$(centre "$(ask "widget CustomTextBox $1")" box)"
    xdotool mousemove "$x" "$y" click 1
    sleep 0.2
  }
  # Puts TEXT on the session's clipboard from another program, which serves
  # it until the next copy takes the clipboard over.
  copy_elsewhere() {
    printf '%s' "$1" | xclip -selection clipboard -quiet &
    pids+=($!)
    sleep 0.3
  }
  # Backspace at the end of the last box empties it, steps back a box, and so
  # on to the first: the whole entry is cleared from the keyboard.
  click_box 3
  xdotool key End key --delay 30 --repeat 16 BackSpace
  sleep 0.3
  expect "camera boxes cleared by Backspace" "$(texts 0 3)" "||||"
  xdotool type --delay 80 '172.16.0.25'
  xdotool key Return
  sleep 0.3
  expect "camera address typed with dots" "$(field "$(ask 'widget TextLabel 1')" text)" 'Return gives: 172.16.0.25'
  click_box 8
  xdotool key End key --delay 30 --repeat 22 BackSpace
  sleep 0.3
  expect "stream boxes cleared by Backspace" "$(texts 4 8)" "|||||"
  xdotool type --delay 80 '0100000000078554'
  xdotool key Return
  sleep 0.3
  expect "stream address typed without dots" "$(field "$(ask 'widget TextLabel 3')" text)" \
    'Return gives: 010.000.000.007:8554'
  expect "stream boxes" "$(texts 4 8)" "010|000|000|007|8554|"
  copy_elsewhere '192.168.7.42:9000'
  click_box 6
  xdotool key ctrl+v Return
  sleep 0.3
  expect "address pasted from another program" "$(field "$(ask 'widget TextLabel 3')" text)" \
    'Return gives: 192.168.7.42:9000'
  copy_elsewhere 'not.an.address'
  click_box 1
  xdotool key ctrl+v Return
  sleep 0.3
  expect "text with dots that is no address changes nothing" "$(field "$(ask 'widget TextLabel 1')" text)" \
    'Return gives: 172.16.0.25'
  copy_elsewhere ' 10.1.2.3 '
  xdotool key ctrl+v Return
  sleep 0.3
  expect "address pasted into the camera entry" "$(field "$(ask 'widget TextLabel 1')" text)" 'Return gives: 10.1.2.3'
  ;;
spacedivider)
  # The gallery page: bins (TextLabel 0) beside a viewer (1) over a timeline
  # (2), a hairline between bins and viewer, a bar between viewer and
  # timeline, and a status line (3) that names the bins' width.
  read -r bins_x _ bins_w _ <<<"$(box "$(ask 'widget TextLabel 0')" box)"
  read -r viewer_x _ viewer_w _ <<<"$(box "$(ask 'widget TextLabel 1')" box)"
  total=$((bins_w + 1 + viewer_w))
  read -r x y <<<"$(centre "$(ask 'widget DiscreetSplitter 0')" box)"
  drag_to "$x" "$y" $((x + 60)) "$y"
  sleep 0.3
  read -r _ _ grown_w _ <<<"$(box "$(ask 'widget TextLabel 0')" box)"
  read -r viewer_x _ viewer_w _ <<<"$(box "$(ask 'widget TextLabel 1')" box)"
  # Let go, the division is read back over the whole width: it may settle a
  # pixel short of the pointer.
  expect_within "the bins' width after a 60-pixel drag" "$grown_w" $((bins_w + 59)) $((bins_w + 60))
  expect "the viewer starts past the hairline" "$viewer_x" $((bins_x + grown_w + 1))
  expect "the two sides still fill the divider" $((grown_w + 1 + viewer_w)) "$total"
  expect "the divider reports the width on the screen" "$(field "$(ask 'widget TextLabel 3')" text | sed -E 's/.*bins ([0-9]+) pixels.*/\1/')" \
    "$grown_w"
  read -r _ viewer_y _ viewer_h <<<"$(box "$(ask 'widget TextLabel 1')" box)"
  read -r _ timeline_y _ timeline_h <<<"$(box "$(ask 'widget TextLabel 2')" box)"
  read -r x y <<<"$(centre "$(ask 'widget Splitter 0')" box)"
  drag_to "$x" "$y" "$x" $((y - 30))
  sleep 0.3
  read -r _ _ _ raised_viewer_h <<<"$(box "$(ask 'widget TextLabel 1')" box)"
  read -r _ raised_timeline_y _ raised_timeline_h <<<"$(box "$(ask 'widget TextLabel 2')" box)"
  expect_within "the timeline's height after a 30-pixel drag" "$raised_timeline_h" $((timeline_h + 29)) $((timeline_h + 30))
  expect "the viewer gave the same" $((raised_viewer_h + raised_timeline_h)) $((viewer_h + timeline_h))
  expect "the timeline keeps its bottom edge" $((raised_timeline_y + raised_timeline_h)) $((timeline_y + timeline_h))
  ;;
globprobe)
  # The inspector page: a panel with a label and a button, and a Glob
  # Inspector whose marked bottom-left corner (its hot spot) sits on the
  # button. Drag the inspector by its title until the corner is on the label,
  # then press left and right together on it: it inspects the label.
  expect "the page's inspector shows the button" "$(text "$(ask 'widget InfoWidget 0')" | cut -d' ' -f1,2)" \
    'Type Button'
  read -r lx ly <<<"$(centre "$(ask 'widget TextLabel 0')" box)"
  read -r ix iy iw ih <<<"$(box "$(ask 'widget GlobInspector 0')" box)"
  title_x=$((ix + iw / 2))
  title_y=$((iy + 6))
  drag_to "$title_x" "$title_y" $((title_x + lx - ix)) $((title_y + ly - (iy + ih - 1)))
  sleep 0.3
  read -r ix iy iw ih <<<"$(box "$(ask 'widget GlobInspector 0')" box)"
  expect "the hot spot dragged onto the label" "$ix $((iy + ih - 1))" "$lx $ly"
  xdotool mousemove $((ix + iw / 2)) $((iy + 6)) mousedown 1 mousedown 3 mouseup 3 mouseup 1
  sleep 0.3
  expect "the chord inspects the label" "$(text "$(ask 'widget InfoWidget 0')" | cut -d' ' -f1,2)" 'Type TextLabel'
  expect "its window's row follows" "$(text "$(ask 'widget InfoWidget 1')" | cut -d' ' -f1,2)" 'Type StandardPanel'
  ;;
wizard)
  # The gallery's export wizard: "Find the clips" with a tick box for
  # proxies, "Proxy settings" (skipped until the box is ticked) and "Render".
  # The current stage's page shows its paragraph as TextLabel 0.
  stage() { text "$(ask 'widget TextLabel 0')" | cut -c1-24; }
  expect "the first stage" "$(stage)" 'The clips of the open se'
  click_reading PushButton Next
  expect "Next skips the disabled stage" "$(stage)" 'Render writes the files;'
  [ -n "$(widget_reading PushButton Render)" ] || fail "the last stage's Next does not read Render"
  click_reading PushButton Back
  expect "Back skips it too" "$(stage)" 'The clips of the open se'
  read -r x y <<<"$(centre "$(ask 'widget Checkbox 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  click_reading PushButton Next
  expect "ticked, the proxy stage comes next" "$(stage)" 'Proxies are made at half'
  click_reading PushButton Next
  expect "then the last" "$(stage)" 'Render writes the files;'
  click_reading PushButton Back
  expect "and Back visits the proxy stage" "$(stage)" 'Proxies are made at half'
  click_reading PushButton Next
  click_reading PushButton Render
  grep -q '"error"' <<<"$(ask 'widget WizardPanel 0')" || fail "Render did not close the wizard"
  echo "ok: Render closes the wizard"
  ;;
splittabs)
  # The split tabs page: two tab groups (TabbedDialogue 0 and 1) with a bar
  # between, and a button that narrows the widget below its minimum for two
  # groups, and widens it again.
  read -r _ _ left_w _ <<<"$(box "$(ask 'widget TabbedDialogue 0')" box)"
  read -r x y <<<"$(centre "$(ask 'widget Splitter 0')" box)"
  drag_to "$x" "$y" $((x + 40)) "$y"
  sleep 0.3
  read -r _ _ dragged_w _ <<<"$(box "$(ask 'widget TabbedDialogue 0')" box)"
  expect_within "the left group after a 40-pixel drag" "$dragged_w" $((left_w + 38)) $((left_w + 42))
  click_reading PushButton Narrow
  grep -q '"error"' <<<"$(ask 'widget TabbedDialogue 1')" || fail "narrowed, the groups did not merge"
  grep -q '"error"' <<<"$(ask 'widget Splitter 0')" || fail "narrowed, the bar stayed"
  echo "ok: narrowed, one row of tabs"
  click_reading PushButton Widen
  grep -q '"box"' <<<"$(ask 'widget TabbedDialogue 1')" || fail "widened, the groups did not split"
  read -r _ _ again_w _ <<<"$(box "$(ask 'widget TabbedDialogue 0')" box)"
  expect "widened, the split is where the bar was" "$again_w" "$dragged_w"
  ;;
pageindex)
  # The page index page: 40 pages, page 12 current, at most nine numbers
  # (Button 0 to 8 of the first bar, then its arrows).
  numbers() {
    local index out=""
    for index in 0 1 2 3 4 5 6 7 8; do out+="$(text "$(ask "widget Button $index")") "; done
    echo "${out% }"
  }
  expect "the run around page 12" "$(numbers)" '8 9 10 11 12 13 14 15 16'
  click_reading Button 15
  expect "a click on 15 centres the run on it" "$(numbers)" '11 12 13 14 15 16 17 18 19'
  click_reading Button 15
  expect "the current page's number ignores clicks" "$(numbers)" '11 12 13 14 15 16 17 18 19'
  click_reading Button '>'
  expect "the next arrow moves the run along" "$(numbers)" '12 13 14 15 16 17 18 19 20'
  click_reading Button 20
  click_reading Button '<'
  expect "the previous arrow steps back" "$(numbers)" '15 16 17 18 19 20 21 22 23'
  ;;
hints)
  # The hints page: a hint beside the Export button, shown at once, and the
  # buttons "Try the hint" (shows it unless acknowledged) and "Reset the
  # hint"; a status line (TextLabel 0) says what happened.
  status() { text "$(ask 'widget TextLabel 0')"; }
  showing() { grep -q '"box"' <<<"$(ask 'widget HintWindow 0')"; }
  showing || fail "no hint on show"
  click_reading PushButton OK
  ! showing || fail "OK left the hint on show"
  click_reading PushButton 'Try the hint'
  expect "an acknowledged hint stays away" "$(status)" 'Acknowledged already: reset to see it again'
  ! showing || fail "an acknowledged hint came back"
  click_reading PushButton 'Reset the hint'
  expect "reset" "$(status)" 'Forgotten: the hint will show again'
  click_reading PushButton 'Try the hint'
  showing || fail "a reset hint did not show"
  # A click elsewhere dismisses it without acknowledging it.
  read -r x y <<<"$(centre "$(ask 'widget TextLabel 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  ! showing || fail "a click elsewhere left the hint on show"
  click_reading PushButton 'Try the hint'
  showing || fail "a dismissed hint was taken as acknowledged"
  expect "it comes back" "$(status)" 'Not acknowledged yet, so it shows'
  # By keys alone: F6 takes them into the hint, where Return acknowledges it.
  xdotool key F6
  sleep 0.3
  xdotool key Return
  sleep 0.4
  ! showing || fail "F6 then Return left the hint on show"
  click_reading PushButton 'Try the hint'
  expect "acknowledged by keys" "$(status)" 'Acknowledged already: reset to see it again'
  ;;
startup)
  # The start-up page: a drag across the banner opens nothing; a click on it
  # opens its address through the desktop's opener. A press elsewhere closes
  # the page's announcements. Then the test tool: its Test button waits for a
  # description that can be tried, each press replaces the announcement it
  # opened before, and Escape in an announcement closes it.
  read -r x y w h <<<"$(box "$(ask 'widget Banner 0')" box)"
  [ -n "$w" ] || fail "no banner on the page"
  xdotool mousemove $((x + 20)) $((y + 20)) mousedown 1 mousemove $((x + 80)) $((y + 40)) \
    mousemove $((x + 140)) $((y + 60)) mouseup 1
  sleep 0.5
  [ -s "$work/opened" ] && fail "a drag across the banner opened $(cat "$work/opened")"
  xdotool mousemove $((x + w / 2)) $((y + h / 2)) click 1
  for _ in $(seq 40); do
    [ -s "$work/opened" ] && break
    sleep 0.1
  done
  expect "the banner's address opened" "$(cat "$work/opened" 2>/dev/null)" 'https://example.org/training'
  click_reading Button 'Announcements Test…'
  grep -q '"error"' <<<"$(ask 'widget AnnouncementTestPanel 0')" && fail "the test tool did not open"
  grep -q '"error"' <<<"$(ask 'widget AnnouncementPanel 0')" || fail "a press elsewhere left an announcement open"
  echo "ok: a press elsewhere closed the page's announcements"
  read -r x y <<<"$(centre "$(ask 'widget MultiLineTextBox 0')" box)"
  click_to_type "$x" "$y"
  xdotool type --delay 30 '<p>Tried on a real display'
  sleep 0.3
  click_reading Button Test
  grep -q '"error"' <<<"$(ask 'widget AnnouncementPanel 0')" || fail "Test opened a panel for half a paragraph"
  click_to_type "$x" "$y"
  xdotool type --delay 30 '</p>'
  sleep 0.3
  click_reading Button Test
  grep -q '"error"' <<<"$(ask 'widget AnnouncementPanel 0')" && fail "Test opened no announcement"
  click_reading Button Test
  grep -q '"error"' <<<"$(ask 'widget AnnouncementPanel 0')" && fail "a second Test opened no announcement"
  grep -q '"error"' <<<"$(ask 'widget AnnouncementPanel 1')" || fail "a second Test kept the first announcement"
  echo "ok: the test tool opens one announcement at a time"
  read -r x y <<<"$(centre "$(ask 'widget AnnouncementPanel 0')" box)"
  click_to_type "$x" "$y"
  xdotool key Escape
  sleep 0.4
  grep -q '"error"' <<<"$(ask 'widget AnnouncementPanel 0')" || fail "Escape left the announcement open"
  echo "ok: Escape closed the announcement"
  ;;
logger)
  # The logger page: "Show log" opens the task log's window. A click on its
  # link row (the second) opens the address through the desktop's opener;
  # the Save button asks for a folder in the file browser and writes
  # TaskLog.html there, escaped, which a small window confirms, in front of
  # the log even when the log is clicked; the menu over a plain row opens
  # the save dialogue, whose Save writes the rows as text.
  click_reading PushButton 'Show log'
  read -r x y <<<"$(centre "$(ask 'widget TableRow 1')" box)"
  xdotool mousemove "$x" "$y" click 1
  for _ in $(seq 40); do
    [ -s "$work/opened" ] && break
    sleep 0.1
  done
  expect "the address opened" "$(cat "$work/opened" 2>/dev/null)" 'https://example.org/render-notes'
  save=""
  for index in $(seq 0 10); do
    reply=$(ask "widget PushButton $index")
    grep -q '"error"' <<<"$reply" && break
    if grep -q '"text":"Save' <<<"$reply"; then save=$reply; fi
  done
  [ -n "$save" ] || fail "no Save button"
  read -r x y <<<"$(centre "$save" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.5
  # The folder is chosen in the file browser, which opens on the documents.
  click_reading Button Choose
  for _ in $(seq 40); do
    [ -s "$work/docs/TaskLog.html" ] && break
    sleep 0.1
  done
  [ -s "$work/docs/TaskLog.html" ] || fail "TaskLog.html was not saved"
  expect "the HTML's first line" "$(head -n1 "$work/docs/TaskLog.html")" '<pre>'
  grep -qF "<p>&lt;script&gt;alert('a log line is only text')&lt;/script&gt;</p>" "$work/docs/TaskLog.html" ||
    fail "the script line was not escaped: $(cat "$work/docs/TaskLog.html")"
  # A click on the task log leaves the confirmation in front of it.
  read -r x y <<<"$(centre "$(ask 'widget TableRow 5')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  click_reading PushButton OK
  grep -q '"error"' <<<"$(ask 'widget warn 0')" || fail "the confirmation went behind the task log"
  echo "ok: the confirmation stayed in front of the task log"
  read -r x y <<<"$(centre "$(ask 'widget TableRow 3')" box)"
  xdotool mousemove "$x" "$y" click 3
  sleep 0.5
  xdotool key Down Return
  sleep 0.5
  # The save dialogue offers the log's title as the name, in the documents.
  click_reading Button Save
  for _ in $(seq 40); do
    [ -s "$work/docs/Task log.txt" ] && break
    sleep 0.1
  done
  [ -s "$work/docs/Task log.txt" ] || fail "the text was not saved: $(ls "$work/docs")"
  expect "the text's first line" "$(head -n1 "$work/docs/Task log.txt")" 'Render started'
  grep -qx "<script>alert('a log line is only text')</script>" "$work/docs/Task log.txt" ||
    fail "the text file lacks the script line as written"
  ;;
destroyed | destroyed_wm)
  # Another program destroys one of our windows (the question of the
  # dialogues page): the program goes on, the window is closed as its close
  # box would, and the page asks again. (Our windows carry the program's
  # class; a window manager's frames do not.)
  ours() { xdotool search --classname "^$(basename "$program")\$" | sort; }
  before=$(ours)
  click_reading PushButton 'Ask yes or no'
  [ -n "$(widget_reading PushButton No)" ] || fail "no question to destroy"
  question=$(comm -13 <(echo "$before") <(ours) | head -1)
  [ -n "$question" ] || fail "the question's window was not found"
  xdotool windowclose "$question"
  sleep 0.5
  grep -q '"window"' <<<"$(ask state)" || fail "the program is gone after its window was destroyed"
  [ -z "$(widget_reading PushButton No)" ] || fail "the destroyed question is still open"
  click_reading PushButton 'Ask yes or no'
  click_reading PushButton No
  [ -n "$(widget_reading TextLabel 'Answer: no')" ] || fail "a new question was not answered"
  ;;
dialogues)
  # The dialogues page: "Ask yes or no" opens a question whose answer shows
  # on the page; "Check the path" checks the output file's path as an
  # exporter would and says what it found.
  answered() { [ -n "$(widget_reading TextLabel "$1")" ]; }
  retype_path() {
    read -r x y <<<"$(centre "$(ask 'widget TitleTextBox 0')" box)"
    click_to_type "$x" "$y"
    xdotool key ctrl+a
    sleep 0.2
    xdotool type --delay 20 "$1"
    sleep 0.4
  }
  click_reading PushButton 'Ask yes or no'
  click_reading PushButton Yes
  answered 'Answer: yes' || fail "Yes was not heard"
  click_reading PushButton 'Ask yes or no'
  xdotool key Escape
  sleep 0.4
  [ -z "$(widget_reading PushButton No)" ] || fail "Escape left the question open"
  answered 'Answer: yes' || fail "Escape gave an answer"
  click_reading PushButton 'Ask yes or no'
  click_reading PushButton No
  answered 'Answer: no' || fail "No was not heard"
  # The question gone, the keyboard is back with the button that asked it.
  xdotool key space
  sleep 0.4
  [ -n "$(widget_reading PushButton No)" ] || fail "Space did not reach 'Ask yes or no' again"
  xdotool key Escape
  sleep 0.4
  # A file that exists, this case's own answers: offered for replacing.
  retype_path "$work/answers"
  expect "the path typed" "$(text "$(ask 'widget TitleTextBox 0')")" "$work/answers"
  click_reading PushButton 'Check the path'
  answered 'Code 5: the file exists' || fail "an existing file was not reported"
  click_reading PushButton Yes
  answered 'Answer: replace the file' || fail "the choice to replace did not reach the page"
  # A folder that does not exist is said in words.
  retype_path "$work/gone/clip.mov"
  click_reading PushButton 'Check the path'
  answered 'Code 4: the folder does not exist' || fail "a missing folder was not reported"
  click_reading PushButton OK
  [ -z "$(widget_reading PushButton OK)" ] || fail "OK left the message open"
  ;;
editor)
  # The editor page: track buttons in a timeline head, an angle dial with
  # its reading below, and the Trim gesture button; the wrapped status line
  # says what a track or a gesture did.
  # The first track's lower edge dragged down 20 pixels: the head gives it
  # the height the drag asked for.
  read -r x y w h <<<"$(box "$(widget_reading TrackButton V1)" box)"
  drag_to $((x + w / 2)) $((y + h - 2)) $((x + w / 2)) $((y + h + 18))
  sleep 0.4
  read -r _ _ _ grown <<<"$(box "$(widget_reading TrackButton V1)" box)"
  expect_within "the track's new height" "$grown" $((h + 17)) $((h + 23))
  expect "the status" "$(label_starting 'Track V1')" "Track V1 is $grown pixels high"
  # The dial's hand, at 30 degrees clockwise from up, dragged to 90 (right).
  reading=$(widget_reading AngleControl '')
  read -r x y w h <<<"$(box "$reading" box)"
  cx=$((x + w / 2))
  cy=$((y + h / 2))
  r=$((w * 3 / 10))
  drag_to $((cx + r / 2)) $((cy - r * 866 / 1000)) $((cx + r)) "$cy"
  sleep 0.4
  angle=$(label_starting 'Angle ' | sed -E 's/Angle (-?[0-9]+).*/\1/')
  expect_within "the angle dragged to the right" "$angle" 85 95
  # A drag off Trim to the right runs the trim of the clip's end.
  read -r x y w h <<<"$(box "$(widget_reading GestureButton Trim)" box)"
  drag_to $((x + w / 2)) $((y + h / 2)) $((x + w + 40)) $((y + h / 2))
  sleep 0.4
  expect "the gesture's command" "$(label_starting 'Dragged')" "Dragged right: the clip's end is trimmed"
  ;;
forms)
  # The forms page: a form of every element kind above a label showing the
  # last report its owner was sent.
  report() { text "$(ask 'widget FormReportLabel 0')"; }
  retype() {
    read -r x y <<<"$(centre "$(widget_reading "$1" "$2")" box)"
    click_to_type "$x" "$y"
    xdotool key ctrl+a
    xdotool type --delay 20 "$3"
    xdotool key Return
    sleep 0.4
  }
  retype TitleTextBox 12 250
  expect "the number is held to its range and reported" "$(report)" 'FormUp 004 99'
  [ -n "$(widget_reading TitleTextBox 99)" ] || fail "the box does not show the number kept"
  retype TitleTextBox 'Interview A' 'Interview B'
  expect "the text is reported" "$(report)" 'FormUp 000 Interview B'
  ;;
export)
  # The export page on the system's encoders: MP4, libx264, 25 fps and a bit
  # rate typed into the encoder's own row; Encode writes one second, which
  # ffprobe reads back.
  # Clicks the row reading TEXT of the open menu.
  choose_row() {
    local menu index
    menu=$(ask "widget MenuWindow 0")
    grep -q '"rows"' <<<"$menu" || fail "no open menu"
    index=$(sed -E 's/.*"rowTexts":\[([^]]*)\].*/\1/' <<<"$menu" | tr ',' '\n' | grep -n -x "\"$1\"" | cut -d: -f1)
    [ -n "$index" ] || fail "no row '$1' in the menu"
    read -r x y <<<"$(row_centre "$menu" rows $((index - 1)))"
    xdotool mousemove "$x" "$y" click 1
    sleep 0.4
  }
  # Opens the menu of the titled button of CLASS: its drop-down sits at the right.
  open_titled_menu() {
    read -r x y w h <<<"$(box "$(ask "widget $1 0")" box)"
    xdotool mousemove $((x + w - h)) $((y + h / 2)) click 1
    sleep 0.4
  }
  read -r x y <<<"$(centre "$(ask 'widget FileFormatButton 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  choose_row MP4
  expect "the file type" "$(text "$(ask 'widget FileFormatButton 0')")" MP4
  open_titled_menu CompressionFormatButton
  choose_row libx264
  open_titled_menu FrameRateButton
  choose_row "25 fps"
  # The general bit rate comes first among the encoder's options.
  reply=$(widget_reading NumericTextBox 200000)
  [ -n "$reply" ] || fail "no bit rate row at its default"
  read -r x y <<<"$(centre "$reply" box)"
  click_to_type "$x" "$y"
  xdotool key ctrl+a
  xdotool type --delay 20 1500000
  xdotool key Return
  sleep 0.4
  [ -n "$(widget_reading NumericTextBox 1500000)" ] || fail "the bit rate row does not show the rate typed"
  click_reading PushButton Encode
  for _ in $(seq 100); do
    written=$(label_starting 'Wrote ')
    [ -n "$written" ] && break
    failed=$(label_starting 'Not written')
    [ -n "$failed" ] && fail "$failed"
    sleep 0.1
  done
  [ -n "$written" ] || fail "nothing was written"
  clip=${written#Wrote }
  probe=$(ffprobe -v error -select_streams v:0 -show_entries stream=codec_name,avg_frame_rate -of default=nw=1 "$clip")
  expect "the codec" "$(sed -n 's/^codec_name=//p' <<<"$probe")" h264
  expect "the frame rate" "$(sed -n 's/^avg_frame_rate=//p' <<<"$probe")" 25/1
  bits=$(ffprobe -v error -show_entries format=bit_rate -of default=nw=1:nk=1 "$clip")
  rm -f "$clip"
  expect_within "the bit rate" "$bits" 750000 2250000
  ;;
images)
  # The images page: a region on a wallpaper, the thumbnail browser on the
  # wallpapers' folder with a line saying the file selected (TextLabel 1),
  # and the button "Alpha Channel Editor", which opens Alphatron beside the
  # page on a picture 32 by 24 whose alpha fades from opaque at the left to
  # clear at the right, five screen pixels a pixel.
  status() { text "$(ask 'widget TextLabel 1')"; }
  read -r x y <<<"$(centre "$(ask 'widget ImageThumbnailBrowser 0')" box)"
  first=$(text "$(ask 'widget ImageItem 0')")
  xdotool mousemove "$x" "$y"
  for _ in 1 2 3; do
    xdotool click 5
    sleep 0.1
  done
  sleep 0.4
  top=$(text "$(ask 'widget ImageItem 0')")
  [ -n "$top" ] && [ "$top" != "$first" ] || fail "the wheel did not scroll the thumbnails (top row '$top')"
  echo "ok: the wheel scrolled the top row from $first to $top"
  name=$(text "$(ask 'widget ImageItem 1')")
  read -r x y <<<"$(centre "$(ask 'widget ImageItem 1')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  expect "the picture selected" "$(status)" "Selected $name.webp"
  # One click on the clear right-hand column of the alpha view (the second
  # ImageViewEx) raises that pixel's alpha from 0 to 2; Control-S saves.
  out="${TMPDIR:-/tmp}/zogallery-alphatron/AT-Output.png"
  rm -f "$out"
  click_reading PushButton 'Alpha Channel Editor'
  read -r x y w h <<<"$(box "$(ask 'widget ImageViewEx 1')" box)"
  click_to_type $((x + 31 * 5 + 2)) $((y + 2))
  xdotool key ctrl+s
  sleep 0.4
  [ -f "$out" ] || fail "Control-S saved nothing at $out"
  expect "the painted pixel's alpha, read back" "$(convert "$out" -format '%[fx:round(255*p{31,0}.a)]' info:)" 2
  expect "an unpainted clear pixel's alpha" "$(convert "$out" -format '%[fx:round(255*p{31,5}.a)]' info:)" 0
  ;;
files)
  # The files page on the folder made above: a file chosen in the browser by
  # pointer and keyboard shows as chosen, and "Save as…" saves under a typed
  # name into a folder chosen in the save form's own browser; the page shows
  # exactly what its listener received.
  folder=$(realpath "$work/files")
  row=$(box "$(ask 'widget TextBox 0')" box | cut -d' ' -f4)
  read -r x y w h <<<"$(box "$(ask 'widget FileTable 0')" box)"
  # The first row lies below the column titles.
  click_to_type $((x + 40)) $((y + row + row / 2))
  xdotool type --delay 80 'clip 10'
  xdotool key Return
  sleep 0.4
  [ -n "$(widget_reading TextLabel "Chosen: $folder/clip 10.mov")" ] ||
    fail "the file chosen was not heard: $(text "$(ask 'widget TextLabel 0')")"
  click_reading PushButton 'Save as…'
  read -r x y <<<"$(centre "$(ask 'widget TitleTextBox 0')" box)"
  click_to_type "$x" "$y"
  xdotool key ctrl+a
  xdotool type --delay 40 'Final/cut.mov'
  sleep 0.3
  expect "the name typed, its slash refused" "$(text "$(ask 'widget TitleTextBox 0')")" 'Finalcut.mov'
  click_reading FileBrowserButton files
  # The chooser's table is the second on screen.
  read -r x y w h <<<"$(box "$(ask 'widget FileTable 1')" box)"
  click_to_type $((x + 40)) $((y + row + row / 2))
  xdotool type --delay 80 'rend'
  xdotool key Return
  sleep 0.4
  click_reading Button Choose
  expect "the folder chosen" "$(text "$(widget_reading FileBrowserButton renders)")" renders
  click_reading Button Save
  [ -n "$(widget_reading TextLabel "Saved: Finalcut.mov in $folder/renders")" ] ||
    fail "the save was not heard as typed and chosen: $(text "$(ask 'widget TextLabel 1')")"
  ;;
tablescroll)
  # The table page: seven columns, wider together than the view, so a bar
  # under the rows scrolls them sideways. The reading of the table says how
  # far it is scrolled and which columns are wholly in view.
  in_view() { [[ ",$(field "$1" inView)," == *",$2,"* ]]; }
  reading=$(ask 'widget TableWidget 0')
  expect "at first, not scrolled sideways" "$(number "$reading" scrollX)" 0
  in_view "$reading" Event || fail "the first column is not in view at first"
  in_view "$reading" Notes && fail "the last column is in view at first"
  read -r x y w h <<<"$(box "$reading" box)"
  # The keyboard to the table, by a click on the first column's second row.
  read -r _ row_y _ row_h <<<"$(box "$(ask 'widget TableRow 1')" box)"
  click_to_type $((x + 20)) $((row_y + row_h / 2))
  # Shift with the wheel turned towards the user scrolls right.
  xdotool keydown shift click 5 click 5 click 5 keyup shift
  sleep 0.4
  reading=$(ask 'widget TableWidget 0')
  expect_within "Shift and the wheel scrolled right" "$(number "$reading" scrollX)" 1 100000
  in_view "$reading" Event && fail "the first column stayed in view"
  # The bar's thumb dragged to the left end of its track.
  read -r tx ty tw th <<<"$(box "$reading" thumb)"
  read -r bx _ _ _ <<<"$(box "$reading" hbar)"
  drag_to $((tx + tw / 2)) $((ty + th / 2)) "$bx" $((ty + th / 2))
  sleep 0.4
  reading=$(ask 'widget TableWidget 0')
  expect "dragging the thumb to the left end scrolls back" "$(number "$reading" scrollX)" 0
  in_view "$reading" Event || fail "the first column did not come back"
  # The wheel's horizontal axis (X's buttons 6 and 7) scrolls too.
  xdotool mousemove $((x + w / 2)) $((row_y + row_h / 2)) click 7
  sleep 0.4
  expect_within "the horizontal wheel scrolled right" "$(number "$(ask 'widget TableWidget 0')" scrollX)" 1 100000
  xdotool click 6
  sleep 0.4
  expect "and back" "$(number "$(ask 'widget TableWidget 0')" scrollX)" 0
  # End moves the current cell to the last column, which scrolls into view.
  xdotool key End
  sleep 0.4
  reading=$(ask 'widget TableWidget 0')
  in_view "$reading" Notes || fail "End left the last column out of view: $(field "$reading" inView)"
  expect "the status" "$(label_starting 'Row ')" "Row 2, column 7"
  ;;
messages)
  # The messages page opens with a message and a status message showing,
  # each closed with its OK; "Ask a question" opens a Warn whose buttons
  # number their answers on the page, so an answer heard twice would show.
  # The OK button that lies inside the box of a reading, as its centre.
  ok_inside() {
    local bx by bw bh index reply x y w h
    read -r bx by bw bh <<<"$(box "$1" box)"
    for index in $(seq 0 20); do
      reply=$(ask "widget PushButton $index")
      grep -q '"error"' <<<"$reply" && return 0
      [ "$(text "$reply")" = OK ] || continue
      read -r x y w h <<<"$(box "$reply" box)"
      if [ "$x" -ge "$bx" ] && [ $((x + w)) -le $((bx + bw)) ] && [ "$y" -ge "$by" ] && [ $((y + h)) -le $((by + bh)) ]; then
        echo "$((x + w / 2)) $((y + h / 2))"
        return 0
      fi
    done
  }
  status_text='Drag a clip onto a track to add it to the sequence.'
  message_text='The export finished: 3 files were written to the Exports folder.'
  reading=$(widget_reading StatusMessage "$status_text")
  [ -n "$reading" ] || fail "no status message at first"
  read -r x y <<<"$(ok_inside "$reading")"
  [ -n "$x" ] || fail "the status message has no OK button"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  [ -z "$(widget_reading StatusMessage "$status_text")" ] || fail "OK left the status message open"
  # The message stands right of the page, its OK button past the edge of
  # this screen: a click on its text gives it the keyboard, and Return
  # presses OK.
  reading=$(widget_reading warn "$message_text")
  [ -n "$reading" ] || fail "no message at first"
  [ -n "$(ok_inside "$reading")" ] || fail "the message has no OK button"
  read -r x y _ h <<<"$(box "$reading" box)"
  click_to_type $((x + 40)) $((y + h / 2))
  xdotool key Return
  sleep 0.4
  [ -z "$(widget_reading warn "$message_text")" ] || fail "Return left the message open"
  # Shown again by its button, and closed by Escape.
  click_reading PushButton 'Show a message'
  reading=$(widget_reading warn "$message_text")
  [ -n "$reading" ] || fail "Show a message showed none"
  read -r x y _ h <<<"$(box "$reading" box)"
  click_to_type $((x + 40)) $((y + h / 2))
  xdotool key Escape
  sleep 0.4
  [ -z "$(widget_reading warn "$message_text")" ] || fail "Escape left the message open"
  click_reading PushButton 'Show a hint'
  [ -n "$(widget_reading StatusMessage "$status_text")" ] || fail "Show a hint showed no status message"
  # The question: Replace pressed with the pointer answers once, and the
  # window goes.
  click_reading PushButton 'Ask a question'
  click_reading PushButton Replace
  [ -n "$(widget_reading TextLabel 'Answer 1: replace the file')" ] ||
    fail "Replace was not heard once: $(label_starting 'Answer')"
  [ -z "$(widget_reading PushButton Replace)" ] || fail "the question stayed open after Replace"
  click_reading PushButton 'Ask a question'
  click_reading PushButton 'Keep both'
  expect "the second answer" "$(label_starting 'Answer')" 'Answer 2: keep both files'
  [ -z "$(widget_reading PushButton 'Keep both')" ] || fail "the question stayed open after Keep both"
  ;;
gauges)
  # The gauges page: the Progress slider drives the gauges. A click on its
  # track sets the fraction, which the gauge reports and its bar shows.
  reading=$(widget_reading Gauge 'Copying files')
  [ -n "$reading" ] || fail "no Copying files gauge"
  expect "the gauge at first" "$(number "$reading" measure)" 350
  read -r gx gy gw gh <<<"$(box "$reading" box)"
  # Sampled just inside the gauge's top edge, above its label.
  bar_at() { ask "pixel $((gx + gw * $1 / 100)) $((gy + 2))"; }
  filled=$(bar_at 10)
  empty=$(bar_at 60)
  [ "$filled" != "$empty" ] || fail "the gauge shows no bar: $filled at 10% and 60%"
  read -r sx sy sw sh <<<"$(box "$(ask 'widget Slider 0')" box)"
  xdotool mousemove $((sx + sw * 8 / 10)) $((sy + sh / 2)) click 1
  sleep 0.4
  reading=$(widget_reading Gauge 'Copying files')
  expect_within "the gauge after the click" "$(number "$reading" measure)" 700 900
  expect "the bar reaches 60% now" "$(bar_at 60)" "$filled"
  expect "and stops before 95%" "$(bar_at 95)" "$empty"
  ;;
tearoff)
  # The colour page's drop-down picker moves with its window when another
  # program moves that, and torn off by its edge it is a window of its own,
  # no longer one that window managers pass over.
  read -r x y <<<"$(centre "$(ask 'widget DropDownColourPickerButton 0')" box)"
  xdotool mousemove "$x" "$y" click 1
  sleep 0.4
  read -r px py pw ph <<<"$(box "$(ask 'widget ColourPicker 1')" box)"
  [ -n "$pw" ] || fail "no drop-down picker"
  xdotool mousemove $((px + pw / 2)) $((py + ph / 2))
  sleep 0.2
  eval "$(xdotool getmouselocation --shell)"
  expect "the drop-down is a popup" "$(xwininfo -id "$WINDOW" | sed -n 's/.*Override Redirect State: //p')" yes
  page=$(xdotool search --name '^Colour$' | head -n1)
  [ -n "$page" ] || fail "no Colour window"
  eval "$(xdotool getwindowgeometry --shell "$page")"
  xdotool windowmove --sync "$page" $((X + 40)) $((Y + 30))
  sleep 0.4
  expect "the drop-down after its window moved" "$(box "$(ask 'widget ColourPicker 1')" box)" \
    "$((px + 40)) $((py + 30)) $pw $ph"
  px=$((px + 40)) py=$((py + 30))
  # Dragged from its left edge, just outside the picker it holds.
  xdotool mousemove $((px - 1)) $((py + ph / 2)) mousedown 1
  for step in $(seq 1 8); do
    xdotool mousemove $((px - 1 + step * 15)) $((py + ph / 2 + step * 5))
    sleep 0.05
  done
  xdotool mouseup 1
  sleep 0.4
  eval "$(xdotool getmouselocation --shell)"
  expect "torn off, a window like the others" \
    "$(xwininfo -id "$WINDOW" | sed -n 's/.*Override Redirect State: //p')" no
  read -r tx ty _ _ <<<"$(box "$(ask 'widget ColourPicker 1')" box)"
  [ "$tx" -gt "$px" ] || fail "the torn-off picker did not follow the drag: $tx against $px"
  ;;
openfailed)
  # A link that nothing on the computer opens says so, instead of nothing.
  click_reading LinkButton 'Project page'
  expect "the opener was asked" "$(cat "$work/opened" 2>/dev/null)" 'https://example.org/zowidgets'
  for _ in $(seq 40); do
    reading=$(widget_reading warn 'Nothing on this computer could open https://example.org/zowidgets.')
    [ -n "$reading" ] && break
    sleep 0.05
  done
  [ -n "$reading" ] || fail "no message that the link could not be opened"
  click_reading PushButton OK
  [ -z "$(widget_reading warn 'Nothing on this computer could open https://example.org/zowidgets.')" ] ||
    fail "OK left the message open"
  ;;
*)
  fail "unknown case"
  ;;
esac
echo quit >&4
