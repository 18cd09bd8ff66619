#!/bin/sh
# The installed program against a real home directory: from the stored designs, or none, to a picture. The user
# database is wrapped so that the account's home is a temporary folder.
# Usage: store_to_picture.sh BUILD_FOLDER
set -eu

build=$1
catalogue=$(cd "$(dirname "$0")/.." && pwd)/locale/eo.po
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$home/usr" > "$home/install.log"
orvel=$home/usr/bin/orvel
echo "user:x:$(id -u):$(id -g)::$home:/bin/sh" > "$home/passwd"
echo "user:x:$(id -g):" > "$home/group"
export NSS_WRAPPER_PASSWD="$home/passwd" NSS_WRAPPER_GROUP="$home/group"
export ASAN_OPTIONS=verify_asan_link_order=0
wrapped() { LD_PRELOAD=libnss_wrapper.so "$@"; }
store="$home/Library/Application Support/Orvel"
cd "$home"

# Nothing stored: the folder appears, no file does, and the invitation is drawn, in every language's own words.
wrapped "$orvel" render -o empty.png
[ -d "$store" ] || fail "the store folder is missing"
[ -z "$(ls -A "$store")" ] || fail "reading made a file"
wrapped "$orvel" inspect | grep -q '"text":"Design one in Orvel"' || fail "no invitation"

# Catalogues are found beside the program.
mkdir -p usr/share/locale/eo/LC_MESSAGES
msgfmt -o usr/share/locale/eo/LC_MESSAGES/orvel.mo "$catalogue"
esperanto() { LC_ALL=C.UTF-8 LANGUAGE=eo wrapped "$@"; }
esperanto "$orvel" inspect | grep -q '"text":"Desegnu ion per Orvel ŝĝ"' || fail "the catalogue isn't used"

# The first of two designs is shown, whatever the folder the program is started in.
cat > "$store/widgets.json" <<'JSON'
[{"id":"A","title":"first","kind":"progress","accentHex":"#f00","symbol":"flag.fill","progress":0.5,"createdAt":0},
 {"id":"B","title":"second","kind":"note","accentHex":"#f00","symbol":"flag.fill","createdAt":0}]
JSON
wrapped "$orvel" inspect | grep -q '"text":"50%".*"text":"FIRST"' || fail "the first design isn't shown"
esperanto "$orvel" inspect | grep -q '"text":"50 centonoj"' || fail "the percentage isn't looked up"
(cd / && wrapped "$orvel" render -o "$home/a.png")
wrapped "$orvel" render -o "$home/b.png"
cmp a.png b.png || fail "the picture depends on the folder"
cmp -s a.png empty.png && fail "the design isn't drawn"

# The home is the user database's, however long its record is; without a record it is the environment's.
awk 'BEGIN { printf "user:x:'"$(id -u):$(id -g)"':"; while (i++ < 3000) printf "n"; print ":'"$home"':/bin/sh" }' > long
ids() { NSS_WRAPPER_PASSWD=$1 wrapped "$orvel" list --ids | tr '\n' ' '; }
[ "$(HOME=/ ids "$home/long")" = "A B " ] || fail "a long record isn't read"
echo "other:x:$(($(id -u) + 1)):0::/:/bin/sh" > other
[ "$(HOME=$home ids "$home/other")" = "A B " ] || fail "without a record, HOME isn't used"

wrapped "$orvel" render -o no/such/folder/a.png 2> error.txt && fail "an unwritable file passes"
[ "$(wc -l < error.txt)" = 1 ] || fail "not one line: $(cat error.txt)"

# Without the drawing libraries a picture fails, and all else works.
rm usr/lib*/orvel/orvel-renderer.so usr/lib/*/orvel/orvel-renderer.so 2> /dev/null || true
wrapped "$orvel" render -o none.png 2> error.txt && fail "it draws without a renderer"
grep -q "can't draw: orvel-renderer.so" error.txt || fail "the renderer isn't named: $(cat error.txt)"
[ "$(wc -l < error.txt)" = 1 ] || fail "not one line: $(cat error.txt)"
[ "$(wrapped "$orvel" list --ids | tr '\n' ' ')" = "A B " ] || fail "listing needs a renderer"

[ -z "$(find . -name '*.tmp-*')" ] || fail "a temporary file is left"
echo "from store to picture: all well"
