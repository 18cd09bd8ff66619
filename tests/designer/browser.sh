#!/usr/bin/env bash
# One of the tests of the designer's page, where there is a browser to drive.
# Usage: browser.sh BUILD_FOLDER TEST.mjs [ARGUMENT]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

skip() {
  [ "${ORVEL_MUST_NOT_SKIP:-0}" = 0 ] || { echo "FAILED: $* is missing" >&2; exit 1; }
  echo "skipped: $* is missing"
  exit 77
}
command -v node > /dev/null || skip node
[ -x /usr/bin/chromium ] || skip chromium
[ -e "$here/../../node_modules/playwright-core" ] || skip "playwright-core, which npm ci installs,"
exec node "$here/$2" "$1" "${@:3}"
