#!/bin/sh
# The designer's entry among a desktop's applications, installed below a folder whose name every form of quoting minds;
# and a command without a designer.
# Usage: launcher.sh BUILD_FOLDER
set -eu
. "$(dirname "$0")/installed.sh"

"$prefix/bin/orvel" design --no-browser 2> "$work/said" && fail "it serves without a designer"
[ "$(cat "$work/said")" = "orvel: $prefix/libexec/orvel/orvel-designer: the designer isn't installed; \
it comes with the package orvel-designer" ] || fail "it says: $(cat "$work/said")"

installs designer
mkfifo "$work/address"
XDG_STATE_HOME="$work/state" LD_PRELOAD=libnss_wrapper.so "$prefix/bin/orvel" design --no-browser \
    > "$work/address" 2> "$work/said" &
designer=$!
read -r address < "$work/address" || fail "the designer doesn't start: $(cat "$work/said")"
kill "$designer"
wait "$designer" || fail "the designer fails: $(cat "$work/said")"
case $address in http://127.0.0.1:*) ;; *) fail "it says: $address" ;; esac

entry=$prefix/share/applications/org.orvel.orvel.desktop
said=$(desktop-file-validate "$entry") || fail "$said"
[ -z "$said" ] || fail "$said"
has "$entry" "Exec=\"$work/a b\\\\\$c%%d/bin/orvel\" design"
has "$entry" "TryExec=$work/a b\$c%d/bin/orvel"
said=$(appstreamcli validate --no-net --pedantic "$prefix/share/metainfo/org.orvel.orvel.metainfo.xml") || fail "$said"

icon=$(sed -n 's/^Icon=//p' "$entry")
theme=$prefix/share/icons/hicolor
for size in 16 22 24 32 48 64 128 256 512; do
    # Width and height lie behind the PNG's beginning.
    seen=$(od -An -j16 -N8 -tu1 "$theme/${size}x$size/apps/$icon.png" | tr -s ' ')
    wanted=" 0 0 $((size / 256)) $((size % 256))"
    [ "$seen" = "$wanted$wanted" ] || fail "the icon of $size pixels has$seen"
done
grep -q '<svg' "$theme/scalable/apps/$icon.svg" || fail "no scalable icon"
echo "the launcher's entry: all well"
