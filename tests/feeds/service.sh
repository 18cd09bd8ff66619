#!/bin/sh
# The feeds' service with real commands, beside a person who changes designs and feeds: nothing is lost, nothing is left.
# Usage: service.sh BUILD_FOLDER
set -eu

build=$1
work=$(mktemp -d)
service='' screen=''
trap 'kill $service $screen 2> /dev/null || true; rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; cat "$work/said" >&2 || true; exit 1; }

home=$work/home
mkdir "$home" "$work/runtime"
echo "user:x:$(id -u):$(id -g)::$home:/bin/sh" > "$work/passwd"
echo "user:x:$(id -g):" > "$work/group"
export NSS_WRAPPER_PASSWD="$work/passwd" NSS_WRAPPER_GROUP="$work/group" ASAN_OPTIONS=verify_asan_link_order=0
export NSS_WRAPPER_DISABLE_DEEPBIND=1
export XDG_RUNTIME_DIR="$work/runtime" XDG_CONFIG_HOME="" XDG_STATE_HOME=""
orvel() { LD_PRELOAD=libnss_wrapper.so "$build/orvel" "$@"; }
feed() { orvel feed "$@" 2> "$work/feed.said" || fail "feed $*: $(cat "$work/feed.said")"; }
field() { orvel list --json | python3 -c 'import json, sys
print(next((d.get(sys.argv[2], "") for d in json.load(sys.stdin) if d["id"] == sys.argv[1]), "none"))' "$1" "$2"; }
feeds() { orvel feed list --json | python3 -c 'import json, sys
print(json.load(sys.stdin)["status"].get(sys.argv[1], {}).get(sys.argv[2], ""))' "$1" "$2"; }
until_is() { # what it should be, and the command that says it
    wanted=$1
    shift
    for _ in $(seq 600); do
        is=$("$@")
        case $is in $wanted) return ;; esac
        sleep 0.1
    done
    fail "$*: '$is' instead of '$wanted'"
}
serve() {
    # exec keeps the process id, so this is the service's.
    LD_PRELOAD=libnss_wrapper.so "$build/orvel" feeds 2>> "$work/said" &
    service=$!
    until_is True sh -c "LD_PRELOAD=libnss_wrapper.so '$build/orvel' feed list --json |
        python3 -c 'import json, sys; print(json.load(sys.stdin)[\"served\"])'"
}
mark=98$$ # of the commands that stay
running() { pgrep -f "^sleep $mark[.]" | wc -l; }

orvel add --kind note --title Front --id front --primary mine --accent blue > "$work/id"
feed add count --every 1s --first title=Count --first secondary=usual -- \
    sh -c 'echo x >> n; [ ! -e broken ] || { echo "it is broken" >&2; exit 1; }; wc -l < n'
serve

# Every change that a person makes is kept, while a feed changes the same design each second.
until_is '[0-9]*' field count primary
for i in $(seq 30); do
    orvel set front primary="$i"
    orvel set count title="Count $i"
    [ "$(field front primary) $(field count title)" = "$i Count $i" ] || fail "change $i is lost"
done
[ "$(orvel list --ids | head -n 1)" = front ] || fail "the feed's design is in front"
orvel undo > "$work/undone"
[ "$(field count title)" = "Count 29" ] || fail "a person's last step can't be taken back: $(cat "$work/undone")"

# Three failures change a line, and success brings it back.
touch "$home/broken"
until_is 'no news since *' field count secondary
grep -q 'count: exit status 1: it is broken' "$work/said" || fail "standard error doesn't say why"
[ "$(feeds count failure)" = "exit status 1: it is broken" ] || fail "the list doesn't say why: $(feeds count failure)"
[ "$(orvel feed run count 2>&1 | tail -n 1)" = "orvel: count: exit status 1: it is broken" ] || fail "feed run doesn't say why"
rm "$home/broken"
feed run count
[ "$(field count secondary)" = usual ] || fail "the line isn't back: $(field count secondary)"

# The configuration is followed while it runs.
feed add other --every 1d -- echo 'primary=first'
until_is first field other primary
feed add other --every 1d -- echo 'primary=second'
until_is second field other primary
feed pause count
sleep 1.5 # one that began before may still end
before=$(wc -l < "$home/n")
sleep 2.5
[ "$(wc -l < "$home/n")" = "$before" ] || fail "a paused feed runs"
feed resume count
until_is "$((before + 1))" sh -c "wc -l < '$home/n'"
orvel remove other > "$work/id"
feed add other --every 1d -- echo 'primary=third'
until_is third field other primary

# One service, which ends with all that it started; also when it is killed.
[ "$(orvel feeds 2>&1)" = "orvel: your feeds are served already, by process $service" ] || fail "a second service runs beside the first"
feed add long --every 1s --timeout 1h -- sh -c "setsid sleep $mark.1 & sleep $mark.2"
until_is 2 running
[ "$(orvel feed run long 2>&1 | cut -d' ' -f 2,3)" = "long: process" ] || fail "the feed runs twice at the same time"
kill "$service"
wait "$service" || fail "it ends with $?"
until_is 0 running
feeds count news | grep -q . || fail "the feed's status is lost when the service ends"
rm "$work"/runtime/*.json
feeds count news | grep -q . || fail "the feed's status is lost with the session's folder"
serve
until_is 2 running
kill -9 "$service"
until_is 0 running

# The cards' own command brings the service along as soon as there are feeds, and takes it away.
if command -v Xvfb > /dev/null; then
    Xvfb -displayfd 3 -noreset -nolisten tcp 3> "$work/display" 2> /dev/null &
    screen=$!
    until_is '[0-9]*' cat "$work/display"
    mv "$home/.config/orvel/feeds.json" "$work"
    DISPLAY=:$(cat "$work/display") WAYLAND_DISPLAY='' LD_PRELOAD=libnss_wrapper.so "$build/orvel" desktop 2>> "$work/said" &
    service=$!
    until_is '*inotify*' sh -c "ls -l /proc/$service/fd"
    sleep 0.5 # as a person is slower than its start
    mv "$work/feeds.json" "$home/.config/orvel"
    until_is 2 running
    kill -9 "$service"
    until_is 0 running
fi
feed remove long
feed remove count
[ "$(orvel feed list --json | grep -c '"name"')" = 1 ] || fail "the feed isn't removed"
echo "feeds served: all well"
