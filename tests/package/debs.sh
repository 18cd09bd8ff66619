#!/bin/sh
# The Debian packages are hardened, and lintian finds nothing in them but what packaging/lintian explains.
# Usage: debs.sh PACKAGE.deb...
set -eu

"$(dirname "$0")/hardened.sh" "$@"
command -v lintian > /dev/null || { echo "skipped: there is no lintian"; exit 0; }
said=$(lintian --allow-root --display-info --pedantic "$@" 2>&1) || true
[ -z "$said" ] || { echo "$said" >&2; exit 1; }
echo "lintian: nothing to say"
