#!/usr/bin/env bash
# The source archive builds without a network, passes tests, and installs; Arch's makepkg builds a package from it, and the
# Nix expression evaluates with it. What isn't on this machine is skipped.
# Usage: source_archive.sh ARCHIVE
set -euo pipefail

archive=$1
here=$(cd "$(dirname "$0")" && pwd)
packaging=$here/../../packaging
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
have() { command -v "$1" > /dev/null || { echo "skipped: there is no $1"; return 1; }; }
offline() { unshare --map-root-user --net "$@" > "$work/log" 2>&1 || { tail -n 30 "$work/log" >&2; fail "$*"; }; }

offline_build() {
  cd "$work"
  tar -xf "$archive"
  cd orvel-*/
  offline cmake --preset release
  offline cmake --build --preset release
  DESTDIR=$work/installed cmake --install build/release --prefix /usr > "$work/log"
  for file in bin/orvel bin/orvel-widget libexec/orvel/orvel-designer share/doc/orvel/LICENSE.phosphor-icons; do
    [ -s "$work/installed/usr/$file" ] || fail "$file isn't installed"
  done
  grep -Fqx 'Exec="/usr/bin/orvel" design' "$work/installed/usr/share/applications/org.orvel.orvel.desktop" ||
    fail "the entry names another program than the installed"

  tests=(test_foundation test_format test_model test_symbols)
  offline cmake --preset release -D BUILD_TESTING=ON
  offline cmake --build --preset release --target "${tests[@]}"
  for test in "${tests[@]}"; do
    "build/release/tests/$test" > "$work/log" 2>&1 || { tail -n 30 "$work/log" >&2; fail "$test"; }
  done
  echo "built offline: all well"
}

# makepkg refuses to run as root.
arch_package() {
  have makepkg && have pacman-conf || return 0
  local folder=$work/arch user=()
  mkdir "$folder"
  cp "$packaging/PKGBUILD" "$archive" "$folder"
  if [ "$(id -u)" = 0 ]; then
    chmod 755 "$work"
    chown -R nobody "$folder"
    user=(setpriv --reuid nobody --clear-groups)
  fi
  cd "$folder"
  env HOME="$folder" PKGEXT=.pkg.tar "${user[@]}" makepkg --nodeps > "$work/log" 2>&1 ||
    { tail -n 30 "$work/log" >&2; fail "makepkg"; }
  local package=(orvel-*.pkg.tar)
  grep WARNING "$work/log" | grep -v 'Skipping dependency checks' >&2 && fail "makepkg warns"
  for file in usr/bin/orvel usr/libexec/orvel/orvel-designer usr/lib/orvel/orvel-renderer.so \
    usr/share/licenses/orvel/LICENSE usr/share/zsh/site-functions/_orvel; do
    tar -tf "${package[0]}" "$file" > /dev/null || fail "the package for Arch lacks $file"
  done
  echo "makepkg: all well"
}

# Nobody's packages are at hand: each is a word, and what the expression hands on is read.
nix_expression() {
  have nix-instantiate || return 0
  local said
  said=$(NIX_STATE_DIR=$work/nix NIX_STORE_DIR=$work/store nix-instantiate --eval --strict --json --expr "
    let
      words = builtins.listToAttrs (map (name: { inherit name; value = name; })
        [ \"cmake\" \"ninja\" \"pkg-config\" \"gettext\" \"wayland-scanner\" \"makeWrapper\" \"cli11\" \"icu\" \"libunistring\"
          \"libpng\" \"simdjson\" \"cairo\" \"fontconfig\" \"freetype\" \"harfbuzz\" \"pango\" \"libxcb\" \"wayland\"
          \"wayland-protocols\" \"inter\" ]);
      lib = { licenses.mit = \"MIT\"; platforms.linux = \"linux\"; makeLibraryPath = builtins.concatStringsSep \":\"; };
      pkgs = words // { inherit lib; stdenv.mkDerivation = given: given; };
    in import $packaging/default.nix { inherit pkgs; src = \"archive\"; }" 2> "$work/log") || fail "$(cat "$work/log")"
  [[ $said == *'"pname":"orvel"'*"\"version\":\"$(basename "$archive" .tar.xz | cut -d- -f2)\""* ]] || fail "it says: $said"
  echo "the Nix expression: all well"
}

nix_expression
arch_package
offline_build
