#!/usr/bin/env bash
# The card on a real X server: where it lies, what it shows, what window managers hear of it, and that it survives.
# Usage: x11.sh BUILD_FOLDER
build=$(cd "$1" && pwd)
. "$(dirname "$0")/desktop.sh"
need Xvfb import xsetroot xrdb xrandr xprop xwininfo xdotool pkill openbox picom

takePicture() { import -silent -window root -depth 8 "$work/shot.ppm"; }
dpi() { echo "Xft.dpi: $1" | xrdb -merge; }
mode() { xrandr --output screen --mode "$1"; }
isAway() { [ -z "$(window)" ]; }
window() { xdotool search --class orvel-widget 2> /dev/null; }
property() { xprop -id "$(window)" "$1" | sed 's/^[^=:]*[=:] *//'; }
is() { [[ "$(property "$1")" == $2 ]]; }
background() {
  "$@" > "$work/log" 2>&1 &
  started+=($!)
}

step "a server"
Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 640x480x24 3> "$work/display" 2> "$work/log" &
server=$!
started+=($server)
eventually test -s "$work/display" -o ! -d "/proc/$server"
running $server || skip "Xvfb doesn't start: $(cat "$work/log")"
unset WAYLAND_DISPLAY
export DISPLAY=:$(cat "$work/display")
xrandr --newmode small 0 480 0 0 480 400 0 0 400
xrandr --addmode screen small
desktop="srgb(51,102,153)"
xsetroot -solid '#336699'
screen=(1 640 480 cut)

startsAndFollowsTheStore

step "the scale changes"
dpi 144
screen=(1.5 640 480 cut)
become metric put metric
hasKnownColours
dpi 192
screen=(2 640 480 cut)
showsEveryKind
endsWhenAsked

step "started at a scale"
expect empty
start
shows empty
dpi 96
screen=(1 640 480 cut)
become metric put metric

step "the monitor changes"
mode small
screen=(1 480 400 cut)
expect metric
shows metric
xrandr --output screen --off 2> /dev/null || true  # it complains of a screen without size
eventually isAway
mode 640x480
screen=(1 640 480 cut)
expect metric
shows metric

step "a compositing manager comes and goes"
background picom --backend xrender --config /dev/null
picom=${started[-1]}
repainted() { takePicture && [ "$(colour 0 0)" != "$desktop" ]; }
eventually repainted  # it has a colour of its own for a desktop without a picture
uncomposited=$desktop
desktop=$(colour 0 0)
screen=(1 640 480)
become progress put progress
hasKnownColours
kill "$picom"
desktop=$uncomposited
screen=(1 640 480 cut)
become note put note

step "a window manager"
background openbox --sm-disable
eventually is _NET_FRAME_EXTENTS "0, 0, 0, 0"
shows
eventually is _NET_WM_DESKTOP 4294967295  # all of them
for state in BELOW SKIP_TASKBAR SKIP_PAGER; do eventually is _NET_WM_STATE "*_NET_WM_STATE_$state*"; done
eventually is WM_CLASS '*"orvel-widget"*'
eventually is _NET_WM_NAME '"Call back, NOTE, at noon"'
put "another"
eventually is _NET_WM_NAME '"*another*"'
xdotool mousemove $((x + 85)) $((y + 85))
[ "$(xdotool getmouselocation --shell | sed -n 's/^WINDOW=//p')" != "$(window)" ] || fail "it takes clicks"
endsWhenAsked

step "without the drawing libraries"
mkdir -p "$work/alone/bin"
cp "$build/orvel-widget" "$work/alone/bin"
start "$work/alone/bin/orvel-widget"
eventually is _NET_WM_NAME '"*another*"'
put "words"
eventually is _NET_WM_NAME '"*words*"'
kill "$widget"
exits 0 1  # said once

step "started without a monitor, and what it had prepared has gone"
xrandr --output screen --off 2> /dev/null || true
start
eventually pkill -KILL -P $widget
mode 640x480
expect words
shows words

step "the server goes away"
kill $server
exits 1 1
echo "the card on X11: all well"
