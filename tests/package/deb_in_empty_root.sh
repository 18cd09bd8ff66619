#!/usr/bin/env bash
# The Debian packages in a Debian 12 that has nothing but itself: they install from Debian's own packages, work, turn
# nothing on by themselves, and go without taking a person's designs along. A person without any rights has a live card
# with two commands more. Needs root, and some minutes; the root is made from the mirror that this machine's apt uses.
# Usage: deb_in_empty_root.sh [PACKAGE DESIGNER]    (default: scripts/package builds them)
set -euo pipefail

scripts=$(cd "$(dirname "$0")/../../scripts" && pwd)
. "$scripts/debian-root.sh"
[ $# = 2 ] || set -- $("$scripts/package")
openRoot bookworm
cp "$1" "$root/orvel.deb"
cp "$2" "$root/orvel-designer.deb"

inside apt-get -q install -y --simulate --install-recommends /orvel.deb | grep '^Inst fonts-noto' ||
    fail "what it recommends isn't in Debian 12"
inside apt-get -q install -y --no-install-recommends /orvel.deb
[ -z "$(find "$root/etc" "$root/root" -name '*orvel*')" ] || fail "installing turns something on"

[[ "$(inside orvel --version)" == "orvel "* ]] || fail "no version"
inside orvel add --kind metric --title Users --primary 42 --symbol person.2.fill
inside orvel render -o /card.png
[ "$(head -c 8 "$root/card.png" | od -An -tx1)" = " 89 50 4e 47 0d 0a 1a 0a" ] || fail "the card isn't a PNG"
inside orvel inspect | grep -q '"text":"42"' || fail "the card doesn't show the design"

code=0
inside orvel-widget 2> "$root/said" || code=$?
[ "$code" = 1 ] || fail "without a display, orvel-widget exits with $code"
[ "$(wc -l < "$root/said")" = 1 ] || fail "other than one line on standard error: $(cat "$root/said")"

inside orvel design --no-browser 2> "$root/said" && fail "a designer that isn't installed serves"
[[ "$(cat "$root/said")" == *"package orvel-designer" ]] || fail "the package isn't named: $(cat "$root/said")"
inside apt-get -q install -y --no-install-recommends /orvel-designer.deb
coproc exec chroot "$root" env -i HOME=/root PATH=/usr/bin:/bin LC_ALL=C.UTF-8 orvel design --no-browser
read -r address <&"${COPROC[0]}"
python3 - "$address" <<'PY' || fail "the designer's page draws no card"
import re, sys, urllib.parse, urllib.request
browser = urllib.request.build_opener(urllib.request.HTTPCookieProcessor())
entrance = browser.open(sys.argv[1]).read().decode()
page = urllib.parse.urljoin(sys.argv[1], re.search('url=([^"]+)', entrance)[1])
card = browser.open(urllib.parse.urljoin(page, "api/card?format=png")).read()
sys.exit(not card.startswith(b"\x89PNG"))
PY
kill "$COPROC_PID"
wait "$COPROC_PID" || true

inside orvel autostart on
[ "$(inside orvel autostart)" = on ] || fail "autostart isn't on"
inside orvel autostart off

# A person without rights, on a desktop: the card of a feed, which follows the disk.
installInside xvfb x11-utils
inside useradd --create-home person
person=(chroot "$root" setpriv --reuid person --regid person --clear-groups
  env -i HOME=/home/person PATH=/usr/bin:/bin LC_ALL=C.UTF-8 DISPLAY=:1909)
started=()
leaveDesk() {
  [ ${#started[@]} = 0 ] || kill "${started[@]}" 2> /dev/null || true
  wait
  started=()
}
trap 'leaveDesk; closeRoot' EXIT
mkdir -p "$root/tmp/.X11-unix"
chmod 1777 "$root/tmp/.X11-unix"
"${person[@]}" Xvfb :1909 -nolisten tcp -screen 0 800x600x24 > /dev/null 2>&1 &
started+=($!)
await() { # a minute at least, so that a busy machine has its time
  local left=600
  until "${@:2}"; do
    [ $((left -= 1)) -gt 0 ] || fail "$1"
    sleep 0.1
  done
}
await "no X server" "${person[@]}" xwininfo -root > /dev/null 2>&1

"${person[@]}" orvel feed new disk
"${person[@]}" orvel desktop &
started+=($!)
# The window's title says what the card shows, so it must have the portion that is stored.
shown() {
  local portion
  portion=$("${person[@]}" orvel show disk | tail -n 1)
  [[ $portion == *%* ]] && "${person[@]}" xwininfo -root -tree 2> /dev/null | grep orvel-widget | grep -qF "$portion"
}
await "no card of the disk" shown
leaveDesk

store="$root/root/Library/Application Support/Orvel/widgets.json"
cp "$store" "$root/before.json"
inside apt-get -q purge -y orvel orvel-designer
[ -z "$(find "$root/usr" "$root/etc" -name '*orvel*')" ] || fail "removing the packages leaves something behind"
cmp "$root/before.json" "$store" || fail "the person's designs changed"
echo "the packages in an empty Debian 12: all well"
