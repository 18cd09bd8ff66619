#!/usr/bin/env bash
# The card on a real Wayland compositor with layer shell: where it lies, what it shows, and that it survives its outputs.
# Usage: wayland.sh BUILD_FOLDER
build=$(cd "$1" && pwd)

# The compositor doesn't run as root. As root, an ordinary user runs the test, with copies that it can read.
if [ "$(id -u)" = 0 ] && command -v sway runuser useradd > /dev/null; then
  id orvel-test > /dev/null 2>&1 || useradd --create-home orvel-test
  copies=$(mktemp -d)
  trap 'rm -rf "$copies"' EXIT
  cp "$build"/orvel{,-widget,-renderer.so} "$(dirname "$0")"/*.sh "$copies"
  chmod -R a+rX "$copies"
  cd /
  runuser -u orvel-test -- "$copies/wayland.sh" "$copies"
  exit
fi
. "$(dirname "$0")/desktop.sh"
need sway swaymsg grim

output=(-o HEADLESS-1)
takePicture() { grim "${output[@]}" -t ppm "$work/shot.ppm"; }
isThere() { swaymsg -t get_outputs | grep -q "\"name\": \"$1\""; }

step "a compositor"
export XDG_RUNTIME_DIR=$work/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset DISPLAY WAYLAND_DISPLAY SWAYSOCK
cat > "$work/configuration" <<TEXT
output * resolution 640x480
output * bg #336699 solid_color
xwayland disable
exec env > $work/environment && mv $work/environment $work/ready
TEXT
WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman sway -c "$work/configuration" > "$work/log" 2>&1 &
compositor=$!
started+=($compositor)
eventually test -s "$work/ready" -o ! -d "/proc/$compositor"
running $compositor || skip "sway doesn't start: $(tail -n 1 "$work/log")"
export "$(grep ^WAYLAND_DISPLAY= "$work/ready")" "$(grep ^SWAYSOCK= "$work/ready")"
desktop="srgb(51,102,153)"
# The background is another program's, which takes its time.
hasDesktop() { takePicture 2> /dev/null && [ "$(colour 0 0)" = "$desktop" ]; }
command -v swaybg > /dev/null || desktop=$(takePicture && colour 0 0)
eventually hasDesktop
screen=(1 640 480)

startsAndFollowsTheStore

# A picture of the output has its pixels; what a fraction of a pixel of a whole scale looks like is the compositor's.
step "the scale changes"
swaymsg -q output HEADLESS-1 scale 2
screen=(2 640 480)
become metric put metric
hasKnownColours
showsSeveralKinds
swaymsg -q output HEADLESS-1 scale 1.5
looksRight() {
  takePicture 2> /dev/null && [ "$(colour 480 200)" = "srgb(22,22,25)" ] && [ "$(colour 340 30)" = "$desktop" ] &&
    [ "$(colour 355 150)" = "srgb(22,22,25)" ] && [ "$(colour 612 150)" = "$desktop" ]
}
eventually looksRight
swaymsg -q output HEADLESS-1 scale 1
screen=(1 640 480)
become note put note

endsWhenAsked

# This compositor's headless outputs can come, but not go.
step "on the output it was meant for"
start "$build/orvel" desktop --output HEADLESS-2
says() { grep -q "$1" "$work/errors"; }
eventually says "appears when it is connected"
put list
swaymsg -q create_output
eventually isThere HEADLESS-2
output=(-o HEADLESS-2)
expect list
shows list
[ "$("$build/orvel" outputs)" = $'HEADLESS-1\nHEADLESS-2' ] || fail "other outputs: $("$build/orvel" outputs)"
kill "$widget"
exits 0 1

step "the compositor goes away"
output=(-o HEADLESS-1)
start
become note put note
{ kill -9 $compositor && wait $compositor; } 2> /dev/null || true
exits 1 1
echo "the card on Wayland: all well"
