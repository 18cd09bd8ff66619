#!/bin/sh
# Two processes at once, each adding designs by the command: none may be lost.
# Usage: two_commands.sh ORVEL DESIGNS_EACH
set -eu
orvel=$1
each=$2
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
echo "user:x:$(id -u):$(id -g)::$home:/bin/sh" > "$home/passwd"
echo "user:x:$(id -g):" > "$home/group"
export NSS_WRAPPER_PASSWD="$home/passwd" NSS_WRAPPER_GROUP="$home/group"
export ASAN_OPTIONS=verify_asan_link_order=0
wrapped() { LD_PRELOAD=libnss_wrapper.so "$orvel" "$@"; }

addAll() {
  i=0
  while [ "$i" -lt "$each" ]; do
    wrapped add --kind note --title "$1 $i" > /dev/null
    i=$((i + 1))
  done
}
addAll one & one=$!
addAll two & two=$!
wait "$one"
wait "$two"
count=$(wrapped list --ids | sort -u | wc -l)
echo "2 x $each designs were added, $count are stored"
[ "$count" = $((2 * each)) ]
