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
showsSeveralKinds
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
xrandr --output screen --off 2> /dev/null || true  # xrandr complains of a screen without a size
eventually isAway
mode 640x480
screen=(1 640 480 cut)
expect metric
shows metric

step "the primary monitor, and what panels leave of it"
xrandr --setmonitor first 240/80x480/160+400+0 screen
xrandr --setmonitor '*second' 400/133x480/160+0+0 none
xprop -root -f _NET_WORKAREA 32c -set _NET_WORKAREA "0, 40, 640, 440"
screen=(1 640 480 cut 400 40)
expect metric
shows metric
[ "$("$build/orvel" outputs --json | tr -d '[]' | sed 's/},{/}\n{/' | sort)" = \
  '{"name":"first","widthPx":240,"heightPx":480,"scale":1}
{"name":"second","widthPx":400,"heightPx":480,"scale":1}' ] || fail "other outputs: $("$build/orvel" outputs --json)"
xrandr --delmonitor first --delmonitor second
xprop -root -remove _NET_WORKAREA
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
managed() { xprop -root _NET_CLIENT_LIST 2> /dev/null | grep -q 'window id'; }
eventually managed
shows
xprop -root _NET_CLIENT_LIST | grep -qi "$(printf '%x' "$(window)")" && fail "the window manager frames it"
eventually is _NET_WM_PID "$(pgrep -P $$ -f orvel-widget | head -1)"
eventually is WM_CLASS '*"orvel-widget"*'
eventually is _NET_WM_NAME '"Call back, NOTE, at noon"'
put "another"
eventually is _NET_WM_NAME '"*another*"'
xdotool mousemove $((x + 85)) $((y + 85))
[ "$(xdotool getmouselocation --shell | sed -n 's/^WINDOW=//p')" != "$(window)" ] || fail "it takes clicks"
endsWhenAsked

step "without the drawing libraries, and when they are there again"
mkdir -p "$work/alone/bin"
cp "$build/orvel" "$work/alone/bin"
start "$work/alone/bin/orvel" desktop --anchor bottom
eventually is _NET_WM_NAME '"*another*"'
put "words"
eventually is _NET_WM_NAME '"*words*"'
cp "$build/orvel-renderer.so" "$work/alone/bin"
put "words"
isAtTheBottom() {
  takePicture && [ "$(colour 237 380) $(colour 233 380)" = "srgb(22,22,25) $desktop" ] &&
    [ "$(colour 320 454) $(colour 320 457)" = "srgb(22,22,25) $desktop" ]
}
eventually isAtTheBottom
kill "$widget"
exits 0 1  # said once

step "the time zone changes"
if unshare -rm true 2> /dev/null; then
  cp -r /etc "$work" 2> /dev/null || true
  zone() { ln -sf "/usr/share/zoneinfo/Etc/$1" "$work/etc/new" && mv -f "$work/etc/new" "$work/etc/localtime"; }
  zone GMT+12
  put local
  start unshare -rm sh -c 'mount --bind "$1" /etc && exec "$2"' sh "$work/etc" "$build/orvel-widget"
  eventually is _NET_WM_NAME '"*LOCAL"'
  said=$(property _NET_WM_NAME)
  zone GMT-14
  saysAnother() { ! is _NET_WM_NAME "$said"; }
  eventually saysAnother
  endsWhenAsked
  put words
fi

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
