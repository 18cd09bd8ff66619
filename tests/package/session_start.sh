#!/bin/sh
# The installed programs, started as a session starts them: below a folder whose name every form of quoting minds, with
# a systemd that knows the unit, with one that doesn't, and without any. The user database is wrapped so that the
# account's home is a temporary folder; systemctl and the card are stand-ins that write down how they were called.
# Usage: session_start.sh BUILD_FOLDER
set -eu
. "$(dirname "$0")/installed.sh"

unit=$prefix/share/systemd/user/orvel-widget.service
[ -z "$(find "$prefix" -path '*/xdg/autostart/*' -o -name '*.wants')" ] || fail "installing turns it on"

orvel() { env XDG_CONFIG_HOME="${configuration:-}" LD_PRELOAD=libnss_wrapper.so "$prefix/bin/orvel" "$@"; }
orvel autostart on
entry=$work/home/.config/autostart/orvel-widget.desktop
[ "$(orvel autostart)" = on ] || fail "it isn't on"
configuration=$work/elsewhere
[ "$(orvel autostart)" = off ] || fail "it is on where it isn't looked for"
orvel autostart on
cmp "$entry" "$configuration/autostart/orvel-widget.desktop" || fail "it isn't on elsewhere"
configuration=""

# Literally: quoted for the entry's command line and then for its file format; a percent sign twice, in the unit too.
has "$entry" "Exec=sh \"$work/a b\\\\\$c%%d/libexec/orvel/start-card\""
has "$entry" "TryExec=$work/a b\$c%d/bin/orvel"
has "$unit" "ExecStart=\"$work/a b\$c%%d/bin/orvel\" desktop --no-feeds"
has "${unit%widget.service}feeds.service" "ExecStart=\"$work/a b\$c%%d/bin/orvel\" feeds"
script=$prefix/libexec/orvel/start-card
program=$prefix/bin/orvel
if command -v desktop-file-validate > /dev/null; then
    [ -z "$(desktop-file-validate "$entry")" ] || fail "$(desktop-file-validate "$entry")"
fi
if command -v systemd-analyze > /dev/null; then
    for checked in "$unit" "${unit%widget.service}feeds.service" "${unit%widget.service}feeds.path"; do
        said=$(XDG_RUNTIME_DIR=$work MANPATH=$prefix/share/man systemd-analyze --user verify "$checked" 2>&1 |
            grep "$(basename "$checked")" | grep -v 'Command .man' || true)
        [ -z "$said" ] || fail "$said"
    done
    # 10 means that a program may do all that its user may; a directive that systemd doesn't know counts for nothing.
    said=$(systemd-analyze security --offline=true --threshold=65 "$unit" 2>&1) || fail "$said"
fi

mkdir "$work/bin"
cat > "$work/bin/systemctl" <<'SH'
#!/bin/sh
echo "systemctl $*" >> "$calls"
[ "$2" != start ] || exit "$answer"
SH
mv "$program" "$program.moved"
said=$(LD_PRELOAD=libnss_wrapper.so "$program.moved" autostart 2>&1)
[ "$said" = "orvel: warning: $entry starts $program, which is gone; orvel autostart on mends it
on" ] || fail "$said"
cat > "$program" <<'SH'
#!/bin/sh
echo "card $*" >> "$calls"
SH
chmod +x "$work/bin/systemctl" "$program"
export calls="$work/calls"
started() { # with that PATH and that answer of systemctl
    : > "$calls"
    PATH=$1 answer=$2 /bin/sh "$script"
    grep -v import-environment "$calls" || true
}
units="orvel-feeds.path orvel-feeds.service orvel-widget.service"
[ "$(started "$work/bin:$PATH" 0)" = "systemctl --user start $units" ] || fail "systemd isn't all that starts a card: $(cat "$calls")"
grep -qx 'systemctl --user import-environment DISPLAY .*' "$calls" || fail "the unit isn't told of the display"
[ "$(started "$work/bin:$PATH" 5 | tail -n 1)" = "card desktop" ] || fail "no card where systemd doesn't know the unit"
[ "$(started "$work/none" 0)" = "card desktop" ] || fail "no card without systemd"

mv "$program.moved" "$program"
LD_PRELOAD=libnss_wrapper.so "$program" autostart off
[ ! -e "$entry" ] || fail "it isn't off"
echo "started with a session: all well"
