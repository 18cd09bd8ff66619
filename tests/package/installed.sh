# For sourcing with the build folder as $1: the program installed in $prefix, below a folder whose name every form of
# quoting minds; and, for programs that run with LD_PRELOAD=libnss_wrapper.so, an account whose home is $work/home.
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
has() { grep -Fqx "$2" "$1" || fail "$1 has no line $2: $(cat "$1")"; }

prefix="$work/a b\$c%d"
installs() { cmake --install "$build" --prefix "$prefix" --component "$1" > "$work/install.log"; }
installs program

echo "user:x:$(id -u):$(id -g)::$work/home:/bin/sh" > "$work/passwd"
echo "user:x:$(id -g):" > "$work/group"
export NSS_WRAPPER_PASSWD="$work/passwd" NSS_WRAPPER_GROUP="$work/group" ASAN_OPTIONS=verify_asan_link_order=0
