#!/bin/sh
# The RPM packages: rpmlint finds nothing but what packaging/rpmlint.toml explains; they install into an empty root
# folder, run nothing when they do, and work from there with this machine's libraries. The user database is wrapped so
# that the account's home is a temporary folder.
# Usage: rpms.sh PACKAGE.rpm...
set -eu

here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

if command -v rpmlint > /dev/null; then
    said=$(rpmlint -c "$here/../../packaging/rpmlint.toml" "$@" 2>&1) || fail "$said"
    case $said in *" 0 errors, 0 warnings"*) echo "rpmlint: nothing to say" ;; *) fail "$said" ;; esac
else
    echo "skipped: there is no rpmlint"
fi
[ -z "$(rpm -qp --scripts "$@" 2> /dev/null)" ] || fail "they run something: $(rpm -qp --scripts "$@")"
# The scripts that people copy ask for nothing; docs/feeds.md says what each needs.
needs=$(rpm -qp --requires "$@" 2> /dev/null)
echo "$needs" | grep -E '^(/usr/bin/|python)' && fail "a template's interpreter is required"
echo "$needs" | grep -qx 'rsms-inter-fonts' || fail "the cards' font isn't required"

root=$work/root
mkdir "$root"
unshare --map-root-user rpm --root "$root" --dbpath /rpm --nodeps -i "$@" 2> "$work/said" || fail "$(cat "$work/said")"
echo "user:x:$(id -u):$(id -g)::$work/home:/bin/sh" > "$work/passwd"
echo "user:x:$(id -g):" > "$work/group"
orvel() {
    NSS_WRAPPER_PASSWD="$work/passwd" NSS_WRAPPER_GROUP="$work/group" LD_PRELOAD=libnss_wrapper.so "$root/usr/bin/orvel" "$@"
}
mkdir "$work/home"
orvel add --kind metric --title Users --primary 42 --symbol person.2.fill
orvel render -o "$work/card.png"
[ "$(head -c 4 "$work/card.png" | tail -c 3)" = PNG ] || fail "the card isn't a PNG"
orvel inspect | grep -q '"text":"42"' || fail "the card doesn't show the design"
echo "the RPM packages in an empty root: all well"
