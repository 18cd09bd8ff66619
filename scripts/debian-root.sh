# For scripts that source it: a Debian in a folder of its own, made by debootstrap from the mirror that this machine's apt
# uses, and gone when the script ends. Needs root.

fail() { echo "FAILED: $*" >&2; exit 1; }

# SUITE: makes it in a new folder, which $root names. A folder in $ORVEL_ROOT is used as it is, made if it is missing, and
# stays.
openRoot() {
  [ "$(id -u)" = 0 ] || { echo "skipped: only root may make a root folder"; exit 0; }
  command -v debootstrap > /dev/null || { echo "skipped: there is no debootstrap"; exit 0; }
  local mirror
  mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' | head -n 1)
  [ -n "$mirror" ] || { echo "skipped: this machine's apt has no Debian 12"; exit 0; }
  root=${ORVEL_ROOT:-$(mktemp -d)}
  trap closeRoot EXIT
  if [ ! -e "$root/etc/debian_version" ]; then
    mkdir -p "$root"
    chmod 755 "$root"
    debootstrap --variant=minbase "$1" "$root" "$mirror" > "$root.log" 2>&1 || { tail "$root.log" >&2; fail "no root"; }
    rm "$root.log"
    inside apt-get -q update
  fi
  mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
  mountpoint -q "$root/dev/shm" || { mkdir -p "$root/dev/shm"; mount -t tmpfs tmpfs "$root/dev/shm"; }
}

closeRoot() {
  umount -q "$root/proc" || true
  umount -q "$root/dev/shm" || true
  [ -n "${ORVEL_ROOT:-}" ] || rm -rf --one-file-system "$root"
}

# COMMAND…: runs it in the root, with nothing of this environment.
inside() {
  chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

# PACKAGE…: installs Debian's packages in the root.
installInside() { inside apt-get -q install -y --no-install-recommends "$@" > /dev/null; }

# Copies the working tree, with the symbols' fonts, into the root's folder /source.
copyTree() {
  scripts/setup > /dev/null
  mkdir -p "$root/source"
  { git ls-files -z --cached --others --exclude-standard; printf 'node_modules\0'; } |
    tar -c --null --files-from=- --ignore-failed-read | tar -x -C "$root/source"
}
