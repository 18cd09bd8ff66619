#!/usr/bin/env bash
# orvel edit with editors that follow a plan: what they leave is stored, opened again at the fault, or kept for the person.
# Usage: edit_command.sh BUILD_FOLDER
set -euo pipefail

orvel=$1/orvel
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
mkdir "$work/home" "$work/tmp"
echo "user:x:$(id -u):$(id -g)::$work/home:/bin/sh" > "$work/passwd"
echo "user:x:$(id -g):" > "$work/group"
export NSS_WRAPPER_PASSWD=$work/passwd NSS_WRAPPER_GROUP=$work/group ASAN_OPTIONS=verify_asan_link_order=0
export TMPDIR=$work/tmp XDG_STATE_HOME=$work/state EDITOR=false
wrapped() { LD_PRELOAD=libnss_wrapper.so "$orvel" "$@" < /dev/null; }
export orvel work

# An editor is what `vi` is found to be: each opening runs the next line of the plan, with the file as $1.
cat > "$work/vi" <<'SH'
#!/usr/bin/env bash
echo "$*" >> "$work/openings"
file=${!#}
step=$(sed -n 1p "$work/plan")
sed -i 1d "$work/plan"
eval "set -- \"$file\"; $step"
SH
chmod +x "$work/vi"
export VISUAL="$work/vi -x"

# edit STATUS PRIMARY DRAFTS [ID] < PLAN: how it ends, the first design's headline then, and how many texts are kept.
edit() {
    rm -rf "$work/tmp" "$work/openings" && mkdir "$work/tmp"
    wrapped set A primary=1 && wrapped set B primary=1 && wrapped front A
    cat > "$work/plan"
    local status=0
    wrapped edit ${4:+"$4"} 2> "$work/said" || status=$?
    [ "$status" = "$1" ] || fail "exit status $status: $(cat "$work/said")"
    [ "$(wrapped list --json | grep -o '"primary":"[^"]*"' | head -1)" = "\"primary\":\"$2\"" ] || fail "$(wrapped list)"
    [ "$(find "$work/tmp" -type f | wc -l)" = "$3" ] || fail "$(find "$work/tmp" -type f): $(cat "$work/said")"
    [ "$3" = 0 ] || grep -q "your text stays in $(find "$work/tmp" -type f)" "$work/said" || fail "$(cat "$work/said")"
}
wrapped add --id B --kind note --title t --symbol flag.fill > /dev/null
wrapped add --id A --kind note --title a/b --symbol flag.fill > /dev/null

edit 0 2 0 <<< 'grep -qx "  \"title\": \"a/b\"," "$1" && sed -i "s/\"1\"/\"2\"/" "$1"'
edit 0 1 0 B <<< 'sed -i "s/\"1\"/\"2\"/" "$1"'
edit 0 1 0 <<< ':'
edit 1 1 0 <<< 'exit 3'
edit 1 1 1 <<< 'echo x > "$1"; exit 3'
edit 0 2 0 << 'PLAN'
sed -i "s/\"1\"/\"2\"/; s/note/n/" "$1"
sed -i "s/\"n\"/\"note\"/" "$1"
PLAN
grep -q "4:11: \"kind\" must be" "$work/said" || fail "$(cat "$work/said")"
grep -q -- "-x +4 $work/tmp" "$work/openings" || fail "$(cat "$work/openings")"
edit 1 1 1 << 'PLAN'
sed -i "s/note/n/" "$1"
:
PLAN
edit 1 9 1 <<< '"$orvel" set A primary=9; sed -i "s/\"1\"/\"2\"/" "$1"'
edit 0 2 0 <<< '"$orvel" set B primary=9; sed -i "s/\"1\"/\"2\"/" "$1"'
edit 1 1 1 <<< 'sed -i "s/\"A\"/\"B\"/" "$1"'
echo "orvel edit: all well"
