# What the desktop's end-to-end tests share: a home with designs, the card's program, and what a screen shows. Sourced.
# With ORVEL_PICTURES=FOLDER in the environment, the pictures are kept there.
set -euo pipefail

step="preparing"
step() { step=$*; echo "$SECONDS s: $step"; }
fail() {
  echo "$*" >&2
  [ -z "${ORVEL_PICTURES:-}" ] || cp "$work"/{shot,expected}.ppm "$ORVEL_PICTURES" || true
  exit 1
}
skip() {
  echo "skipped: $*"
  [ "${ORVEL_MUST_NOT_SKIP:-0}" = 0 ] && exit 77
  exit 1
}
need() {
  local command
  for command; do [ -n "$(command -v "$command")" ] || skip "$command is missing"; done
}

# eventually COMMAND…: runs it until it succeeds, and gives up after a generous time.
eventually() {
  local start=$SECONDS
  until "$@"; do
    ((SECONDS - start < 60)) || fail "still not true after a minute: $*"
    sleep 0.02
  done
}

# A home for the programs under test alone.
need convert compare composite
export MAGICK_THREAD_LIMIT=1
work=$(mktemp -d)
widget=""
started=()
cleanUp() {
  local status=$? process
  [ $status = 0 ] || [ $status = 77 ] || { echo "FAILED: $step"; cat "$work/errors"; } >&2 || true
  for process in $widget "${started[@]}"; do kill "$process" 2> /dev/null || true; done
  wait || true
  rm -rf "$work"
}
trap cleanUp EXIT
trap 'exit 1' INT TERM
store="$work/Library/Application Support/Orvel"
other=$work/other  # another home, which expectations are drawn from
for home in "$work" "$other"; do
  mkdir -p "$home/Library/Application Support/Orvel"
  echo "user:x:$(id -u):$(id -g)::$home:/bin/sh" > "$home/passwd"
done
echo "user:x:$(id -g):" > "$work/group"
export HOME=$work NSS_WRAPPER_PASSWD="$work/passwd" NSS_WRAPPER_GROUP="$work/group"
export ASAN_OPTIONS=verify_asan_link_order=0 NSS_WRAPPER_DISABLE_DEEPBIND=1
wrapped() { LD_PRELOAD=libnss_wrapper.so "$@"; }
wrapped true 2>&1 | grep -q . && skip "libnss_wrapper.so is missing"

design() {
  local common='"symbol":"flag.fill","accentHex":"#FF453A","createdAt":0'
  case $1 in
    empty) ;;
    metric) echo '{"id":"1","kind":"metric","title":"Active users","primary":"42","secondary":"12 more",'"$common}" ;;
    progress) echo '{"id":"2","kind":"progress","title":"Release","progress":0.5,'"$common}" ;;
    countdown) echo '{"id":"3","kind":"countdown","title":"Journey","targetISO8601":"2199-01-01",'"$common}" ;;
    list) echo '{"id":"4","kind":"list","title":"Today","items":["Bread","Tea","Apples"],'"$common}" ;;
    local) echo '{"id":"7","kind":"countdown","title":"Local","targetISO8601":"2199-01-01 here",'"$common}" ;;
    note) echo '{"id":"5","kind":"note","title":"Note","primary":"Call back","secondary":"at noon",'"$common}" ;;
    *) echo '{"id":"6","kind":"note","title":"'"$1"'","primary":"'"$1"'",'"$common}" ;;
  esac
}

put() {
  echo "[$(design "$1")]" > "$store/new"
  mv -f "$store/new" "$store/widgets.json"
}

# Starts and ends the card's program, and checks what it prints.
start() {
  LD_PRELOAD=libnss_wrapper.so "${@:-$build/orvel-widget}" > "$work/said" 2> "$work/errors" &
  widget=$!
}
running() { kill -0 "$1" 2> /dev/null; }
isOver() { ! running "$1"; }
# exits STATUS LINES: the program ends, with as many lines on standard error besides the one on what the compositor lacks.
exits() {
  local status=0
  eventually isOver "$widget"
  wait "$widget" || status=$?
  widget=""
  [ "$status" = "$1" ] || fail "it ended with $status: $(cat "$work/errors")"
  [ "$(grep -vc "the Wayland compositor tells programs whole scales alone" "$work/errors")" = "$2" ] || fail "not $2 lines: $(cat "$work/errors")"
}
endsWhenAsked() {
  running "$widget" || fail "it isn't running any more: $(cat "$work/errors")"
  kill "$widget"
  exits 0 0
}
# The screen. A server's test says how to take its picture, as $work/shot.ppm, and what the screen is: its scale, width
# and height, "cut" where the card's corners are cut out instead of blended, and the right and top edge of the room that
# the card has, where that isn't the whole screen.
screen=(1 0 0)
desktop=""
pixels() { awk -v points="$1" -v scale="${screen[0]}" 'BEGIN { printf "%d", points * scale + 0.5 }'; }
colour() { convert "$work/shot.ppm" -depth 8 -format "%[pixel:p{$1,$2}]" info: | sed 's/^gray(\(.*\))$/srgb(\1,\1,\1)/'; }

# expect DESIGN: from now on the whole screen is to show the desktop's colour and, 24 points from its top right corner,
# the card as the command draws it. What isn't opaque counts for nothing where the corners are cut out.
expect() {
  x=$((${screen[4]:-${screen[1]}} - $(pixels 170) - $(pixels 24)))
  y=$((${screen[5]:-0} + $(pixels 24)))
  echo "[$(design "$1")]" > "$other/Library/Application Support/Orvel/widgets.json"
  NSS_WRAPPER_PASSWD=$other/passwd wrapped "$build/orvel" render --scale "${screen[0]}" -o "$work/card.png"
  convert -size "${screen[1]}x${screen[2]}" "xc:$desktop" "$work/card.png" -geometry "+$x+$y" -composite -depth 8 \
    "$work/expected.ppm"
  [ "${screen[3]:-}" = cut ] || return 0
  convert "$work/card.png" -alpha extract \( +clone -threshold 0 \) \( -clone 0 -threshold 99.9% \) -delete 0 \
    -compose difference -composite -background black -alpha shape "$work/ignored.png"
  ignored=(-geometry "+$x+$y" "$work/ignored.png")
  composite "${ignored[@]}" "$work/expected.ppm" -depth 8 "$work/expected.ppm"
}
isShown() {
  takePicture 2> /dev/null || return
  [ "${screen[3]:-}" != cut ] || composite "${ignored[@]}" "$work/shot.ppm" -depth 8 "$work/shot.ppm"
  [ "$(compare -metric AE -fuzz 1% "$work/shot.ppm" "$work/expected.ppm" null: 2>&1)" = 0 ]
}
shows() {
  eventually isShown
  [ -z "${ORVEL_PICTURES:-}" ] || cp "$work/shot.ppm" "$ORVEL_PICTURES/$step $1 ${screen[*]}.ppm"
}
# become DESIGN COMMAND…: the command changes the store so that the design is shown.
become() {
  expect "$1"
  local began=${EPOCHREALTIME/[.,]/}
  "${@:2}"
  shows "$1"
  echo "  $1, ${*:2}: $(((${EPOCHREALTIME/[.,]/} - began) / 1000)) ms"
}

# The command draws with the same code. So a few pixels are also checked by colours that are written down here: the card's
# and the accent's.
hasKnownColours() {
  become progress put progress
  [ "$(colour $((x + $(pixels 85))) $((y + $(pixels 4))))" = "srgb(22,22,25)" ] || fail "the card has another background colour"
  [ "$(colour "$x" "$y")" = "$desktop" ] || fail "the corner isn't transparent"
  convert "$work/shot.ppm" -depth 8 -format %c histogram:info: | grep -q '#FF453A' || fail "nothing on the card has the accent colour"
}

showsSeveralKinds() {
  local each
  for each in metric countdown list note empty; do become "$each" put "$each"; done
}

inPlace() { echo "[$(design "$1")]" > "$store/widgets.json"; }
# Every program that reads the store makes its folder, perhaps while the test is deleting it.
without() { until rm -rf "$1" 2> /dev/null; do :; done; }
inNewFolder() { mkdir -p "$store" && put "$1"; }
# The folder as a link, which is replaced in one step.
linked() {
  mkdir "$work/$1"
  echo "[$(design "$1")]" > "$work/$1/widgets.json"
  ln -s "$work/$1" "$work/link"
  until mv -T "$work/link" "$store" 2> /dev/null; do without "$store"; done
}
fileElsewhere() {
  echo "[$(design "$1")]" > "$work/elsewhere.json"
  ln -sf "$work/elsewhere.json" "$store/widgets.json"
}
replacedElsewhere() {
  echo "[$(design "$1")]" > "$work/new.json"
  mv "$work/new.json" "$work/elsewhere.json"
}
startsAndFollowsTheStore() {
  step "without a display"
  start env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR="$work" "$build/orvel-widget"
  exits 1 1
  step "nothing stored"
  expect empty
  start
  shows empty
  hasKnownColours
  showsSeveralKinds
  step "the store changes"
  become renamed put renamed
  become written inPlace written
  become empty without "$store"
  become again inNewFolder again
  become linked linked linked
  become swapped linked swapped
  become within put within
  become elsewhere fileElsewhere elsewhere
  become replaced replacedElsewhere replaced
  become empty without "$work/Library"
  become back inNewFolder back
}
