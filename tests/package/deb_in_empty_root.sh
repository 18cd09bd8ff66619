#!/usr/bin/env bash
# The Debian packages in a Debian 12 that has nothing but itself: they install from Debian's own packages, work, turn
# nothing on by themselves, and go without taking a person's designs along. Needs root, and a minute or more; the root is
# made from the mirror that this machine's apt uses.
# Usage: deb_in_empty_root.sh [PACKAGE DESIGNER]    (default: scripts/package builds them)
set -euo pipefail

skip() { echo "skipped: $*"; exit 0; }
fail() { echo "FAILED: $*" >&2; exit 1; }
[ "$(id -u)" = 0 ] || skip "only root may make a root folder"
command -v debootstrap > /dev/null || skip "there is no debootstrap"
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' | head -n 1)
[ -n "$mirror" ] || skip "this machine's apt has no Debian 12"
[ $# = 2 ] || set -- $("$(dirname "$0")/../../scripts/package")

root=$(mktemp -d)
trap 'umount -q "$root/proc" || true; rm -rf --one-file-system "$root"' EXIT
chmod 755 "$root"
debootstrap --variant=minbase bookworm "$root" "$mirror" > "$root.log" 2>&1 || { tail "$root.log" >&2; fail "no root"; }
rm "$root.log"
inside() { chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
cp "$1" "$root/orvel.deb"
cp "$2" "$root/orvel-designer.deb"

inside apt-get -q update
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

store="$root/root/Library/Application Support/Orvel/widgets.json"
cp "$store" "$root/before.json"
inside apt-get -q purge -y orvel orvel-designer
[ -z "$(find "$root/usr" "$root/etc" -name '*orvel*')" ] || fail "removing the packages leaves something behind"
cmp "$root/before.json" "$store" || fail "the person's designs changed"
echo "the packages in an empty Debian 12: all well"
