#!/bin/sh
# The installed library serves a program that knows nothing of this project's folders: the package is installed, moved
# elsewhere, and built against. The user database is wrapped so that the account's home is a temporary folder.
# Usage: build_against_install.sh BUILD_FOLDER
set -eu

build=$1
here=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$here/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }

cmake --install "$build" --prefix "$work/first" --component development > "$work/install.log"
mv "$work/first" "$work/moved"
include=$work/moved/include/orvel
[ ! -e "$work/moved/bin" ] || fail "the library's component has programs"

if grep -rn --include='*.cmake' -e "$source" -e "$build" -e "$work" "$work/moved"; then
    fail "a path of this machine is exported"
fi

# Installed headers stand on the standard library and on each other.
find "$include" -name '*.h' | grep -q . || fail "no headers"
for header in $(find "$include" -name '*.h'); do
    sed -nE 's/^ *# *include *<([^>]*)>.*/\1/p' "$header" | grep -vE '^[a-z_]+$' && fail "$header includes another's"
    for included in $(sed -nE 's/^ *# *include *"([^"]*)".*/\1/p' "$header"); do
        [ -e "$include/$included" ] || fail "$header includes $included, which isn't installed"
    done
done

cmake -S "$here" -B "$work/build" -G "$(cached CMAKE_GENERATOR)" -DCMAKE_PREFIX_PATH="$work/moved" \
    -DCMAKE_CXX_COMPILER="$(cached CMAKE_CXX_COMPILER)" -DCMAKE_CXX_FLAGS="-Wall -Wextra -Wpedantic -Werror" \
    > "$work/configure.log" 2>&1 || { cat "$work/configure.log" >&2; fail "the package isn't found"; }
cmake --build "$work/build" > "$work/build.log" 2>&1 || { cat "$work/build.log" >&2; fail "it doesn't build"; }

echo "user:x:$(id -u):$(id -g)::$work/home:/bin/sh" > "$work/passwd"
echo "user:x:$(id -g):" > "$work/group"
store="$work/home/Library/Application Support/Orvel"
mkdir -p "$store"
design='"title":"t","kind":"note","accentHex":"#f00","symbol":"flag.fill","createdAt":0'
echo "[{\"id\":\"A\",$design},{\"id\":\"B\",$design}]" > "$store/widgets.json"
answer=$(NSS_WRAPPER_PASSWD="$work/passwd" NSS_WRAPPER_GROUP="$work/group" ASAN_OPTIONS=verify_asan_link_order=0 \
    LD_PRELOAD=libnss_wrapper.so "$work/build/designer") || fail "the program fails"
[ "$answer" = "2 stored" ] || fail "it says: $answer"
echo "a program against the installed package: all well"
