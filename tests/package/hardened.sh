#!/bin/sh
# The programs and modules of a package are hardened as cmake/OrvelHardening.cmake says. That stacks are probed page by
# page can't be seen in a file. Each fault is told.
# Usage: hardened.sh PACKAGE.deb...
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
faults=$work/faults
: > "$faults"
for package in "$@"; do
    mkdir "$work/files"
    dpkg-deb -x "$package" "$work/files"
    find "$work/files" -type f > "$work/list"
    checked=0
    while read -r file; do
        head=$(readelf -hW "$file" 2> /dev/null) || continue
        segments=$(readelf -lW "$file")
        symbols=$(readelf --dyn-syms -W "$file")
        fault() { echo "$(basename "$package"): ${file#"$work/files"}: $*" >> "$faults"; }

        case $head in *DYN*) ;; *) fault "is not position independent" ;; esac
        case $segments in *GNU_RELRO*) ;; *) fault "leaves the linker's tables writable" ;; esac
        readelf -dW "$file" | grep -q BIND_NOW || fault "binds functions late, which leaves their table writable"
        echo "$segments" | grep GNU_STACK | grep -q RWE && fault "has a stack that can be executed"
        case $symbols in *__stack_chk_fail*) ;; *) fault "doesn't guard its stack" ;; esac
        echo "$symbols" | grep -v stack_chk | grep -qE '__[a-z]+_chk' || fault "calls no checked function of the C library"
        # Where jumps may land: endbr64 on x86, bti or paciasp on arm64. The C library's own parts have a few.
        case $head in
            *X86-64*) pad='\xf3\x0f\x1e\xfa' ;;
            *AArch64*) pad='\x5f\x24\x03\xd5|\x3f\x23\x03\xd5' ;;
            *) pad='' ;;
        esac
        [ "$(LC_ALL=C grep -aoP "$pad" "$file" | wc -l)" -gt 100 ] || fault "doesn't mark where jumps may land"
        checked=$((checked + 1))
    done < "$work/list"
    [ "$checked" -gt 0 ] || { file=$work/files; fault "holds no program"; }
    rm -r "$work/files"
done
cat "$faults" >&2
[ ! -s "$faults" ] || exit 1
echo "the packages' programs are hardened"
