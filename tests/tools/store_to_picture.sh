#!/bin/sh
# The installed program against a real home directory: from the stored designs, or none, to a picture. The user
# database is wrapped so that the account's home is a temporary folder.
# Usage: store_to_picture.sh BUILD_FOLDER
set -eu

build=$1
home=$(mktemp -d)
words='' picture=''
trap 'kill $words $picture 2> /dev/null || true; rm -rf "$home"' EXIT
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
# Newer versions of gettext translate nothing in C.UTF-8; older systems may have no other locale.
locale=C.UTF-8
case $(locale -a) in *en_US.utf8*) locale=en_US.UTF-8 ;; esac
german() { LC_ALL=$locale LANGUAGE=de wrapped "$@"; }
german "$orvel" inspect | grep -q '"text":"Gestalten Sie eines in Orvel"' || fail "the catalogue isn't used"

[ "$(LC_ALL=C wrapped "$orvel" inspect --lang de)" = "$(german "$orvel" inspect)" ] || fail "--lang isn't followed"

# The faces for Han are the language's, and with --lang the same in every environment.
han='{"id":"A","title":"","kind":"note","accentHex":"","symbol":"","primary":"直角","createdAt":0}'
draw_in() { echo "$han" | LC_ALL=$1 wrapped "$orvel" render --design - -o - $2; }
draw_in C.UTF-8 "--lang zh_CN" > chinese.png
draw_in ja_JP.UTF-8 "--lang zh_CN" | cmp - chinese.png || fail "--lang doesn't override the environment"
draw_in C.UTF-8 "--lang ja" | cmp -s - chinese.png && fail "Chinese and Japanese have the same faces"

# The first of two designs is shown, whatever the folder the program is started in.
cat > "$store/widgets.json" <<'JSON'
[{"id":"A","title":"first","kind":"progress","accentHex":"#f00","symbol":"flag.fill","progress":0.5,"createdAt":0},
 {"id":"B","title":"second","kind":"note","accentHex":"#f00","symbol":"flag.fill","createdAt":0}]
JSON
wrapped "$orvel" inspect | grep -q '"text":"50%".*"text":"FIRST"' || fail "the first design isn't shown"
german "$orvel" inspect | grep -q "\"text\":\"50$(printf '\302\240')%\"" || fail "the percentage isn't looked up"
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

wrapped "$orvel" render -o no/such/folder/a.png 2> error.txt && fail "writing to an unwritable file succeeds"
[ "$(wc -l < error.txt)" = 1 ] || fail "other than one line on standard error: $(cat error.txt)"

# Printing on a full disk, into a closed pipe, and into nothing.
for arguments in list show check symbols timeline inspect; do
    wrapped "$orvel" $arguments > /dev/full 2> error.txt && fail "$arguments succeeds on a full disk"
    [ "$(cat error.txt)" = "orvel: standard output: can't write: No space left on device" ] || fail "$(cat error.txt)"
    wrapped "$orvel" $arguments >&- 2> error.txt && fail "$arguments succeeds without standard output"
    grep -q "standard output: can't write" error.txt || fail "$arguments: $(cat error.txt)"
done
wrapped "$orvel" remove B > /dev/full 2> error.txt && fail "a removal whose answer can't be printed succeeds"
[ "$?" = 3 ] && grep -q "the change is made, but" error.txt || fail "a change that is made is called failed: $(cat error.txt)"
wrapped "$orvel" undo >&- 2> error.txt || [ "$?" = 3 ] || fail "undo without an output: $(cat error.txt)"
[ "$(wrapped "$orvel" list --ids | tr '\n' ' ')" = "A B " ] || fail "a change that is made is lost"
wrapped "$orvel" symbols 2> error.txt | head -1 > /dev/null
[ ! -s error.txt ] || fail "a closed pipe is reported as an error: $(cat error.txt)"
wrapped "$orvel" check - < / 2> error.txt && fail "a folder is read as a list"
grep -q "standard input: can't read: Is a directory" error.txt || fail "$(cat error.txt)"

# The words and the picture follow the store; ending them is no failure.
eventually() {
    for attempt in $(seq 1200); do "$@" && return; sleep 0.05; done
    fail "still not true after a minute: $*"
}
LD_PRELOAD=libnss_wrapper.so "$orvel" show --follow --waybar > words & words=$!
LD_PRELOAD=libnss_wrapper.so "$orvel" render --watch -o watched.svg 2> told & picture=$!
eventually grep -qs '"tooltip":"first' words
eventually test -s watched.svg
cp watched.svg before.svg
wrapped "$orvel" set A title=changed secondary=unseen 2> /dev/null
eventually grep -q '"tooltip":"changed' words
changed() { ! cmp -s watched.svg before.svg; }
eventually changed
cp "$store/widgets.json" kept.json
echo '[' > "$store/widgets.json"
eventually grep -q 'widgets.json:1:1: not valid JSON.*"class":"error"' words
eventually grep -q 'widgets.json:1:1: not valid JSON' told
cp kept.json "$store/widgets.json"
fourLines() { [ "$(wc -l < words)" = 4 ]; }
eventually fourLines
kill "$words" "$picture"
wait "$words" || fail "following the words ends with $?"
wait "$picture" || fail "following the picture ends with $?"
words='' picture=''

# Programs and the module look for libraries where the system has them, and nowhere else.
find "$build" -maxdepth 2 -type f \( -perm -u+x -o -name '*.so' \) -not -name '*.sh' -not -path '*/CMakeFiles/*' > binaries
find usr -type f \( -perm -u+x -o -name '*.so' \) >> binaries
grep -q '/orvel-widget$' binaries || fail "the programs aren't found"
while read -r binary; do
    if readelf -d "$binary" 2> /dev/null | grep -E '\((RPATH|RUNPATH)\)'; then fail "$binary has a run path"; fi
done < binaries

# Memory that runs out ends in one line, at whatever point of the start it does.
if ! grep -q '^ORVEL_SANITIZE:.*=.' "$build/CMakeCache.txt"; then
    for count in $(seq 1 3 600); do
        status=0
        FAILING_MALLOC=$count LD_PRELOAD=$build/tests/libfailing_malloc.so "$orvel" symbols > /dev/null 2> error.txt ||
            status=$?
        [ "$status" -le 1 ] || fail "it ends with $status after $count requests: $(cat error.txt)"
        [ "$status" = 0 ] || [ "$(cat error.txt)" = "orvel: out of memory" ] || fail "after $count: $(cat error.txt)"
    done
fi

# Without the drawing libraries a picture fails, and all else works.
rm usr/lib*/orvel/orvel-renderer.so usr/lib/*/orvel/orvel-renderer.so 2> /dev/null || true
wrapped "$orvel" render -o none.png 2> error.txt && fail "it draws without a renderer"
grep -q "can't draw: orvel-renderer.so" error.txt || fail "the renderer isn't named: $(cat error.txt)"
[ "$(wc -l < error.txt)" = 1 ] || fail "other than one line on standard error: $(cat error.txt)"
[ "$(wrapped "$orvel" list --ids | tr '\n' ' ')" = "A B " ] || fail "listing needs a renderer"

[ -z "$(find . -name '*.tmp-*')" ] || fail "a temporary file is left"
echo "from store to picture: all well"
