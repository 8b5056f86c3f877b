# Sourced by the scripts that need a clean Debian system: one in a folder, with packages from where this
# machine has its own. What runs there has processes, mounts and terminals of its own, which go with it.

# The release that runs here, or another one. The first call takes about a minute, later ones unpack what
# it has kept.
#   make_system FOLDER-TO-KEEP-THINGS ROOT [RELEASE]
make_system() {
  local here suite mirror base sources kept
  # shellcheck source=/dev/null
  here=$(. /etc/os-release && echo "$VERSION_CODENAME")
  suite=${3:-$here}
  sources=$(debian_sources)
  [[ -n $sources ]] || { apt-get -q update >"$1/update.log" 2>&1; sources=$(debian_sources); }
  sources=${sources// $here/ $suite}
  mirror=$(awk -v suite="$suite" '$3 == suite { print $2; exit }' <<<"$sources")
  [[ -n $mirror ]] || fail "apt knows no source of Debian's packages for $suite"
  base=$1/$suite.tar
  kept=$1/archives/$suite
  if [[ ! -e $base ]]; then
    remove_system "$2"
    debootstrap --variant=minbase "$suite" "$2" "$mirror" >"$1/debootstrap.log" 2>&1 || {
      tail -n 20 "$1/debootstrap.log" >&2
      fail "debootstrap could not make $suite from $mirror; its last messages are above, all are in $1/debootstrap.log"
    }
    rm -f "$2"/var/cache/apt/archives/*.deb
    tar -C "$2" --numeric-owner -cf "$base.part" .
    mv "$base.part" "$base"
  fi
  remove_system "$2"
  mkdir -p "$2" "$kept"
  tar -C "$2" --numeric-owner -xf "$base"

  echo "$sources" >"$2/etc/apt/sources.list"
  apt-config dump Acquire | grep '";$' >"$2/etc/apt/apt.conf.d/00from-outside" || true
  cp /etc/resolv.conf /etc/hosts "$2/etc/"
  # It is thrown away anyway.
  echo force-unsafe-io >"$2/etc/dpkg/dpkg.cfg.d/unsafe-io"
  # Nothing is started by being installed.
  printf '#!/bin/sh\nexit 101\n' >"$2/usr/sbin/policy-rc.d"
  chmod +x "$2/usr/sbin/policy-rc.d"
  find "$kept" -name '*.deb' -exec cp -lf -t "$2/var/cache/apt/archives" {} +
  on_system "$2" apt-get -q update
}

# Debian's sources among this machine's, one line each.
debian_sources() {
  apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | sort -u
}

# Keeps the packages that have been fetched for the next time.
#   keep_archives FOLDER-TO-KEEP-THINGS ROOT
keep_archives() {
  local suite
  # shellcheck source=/dev/null
  suite=$(. "$2/etc/os-release" && echo "$VERSION_CODENAME")
  find "$2/var/cache/apt/archives" -name '*.deb' -links 1 -exec cp -lf -t "$1/archives/$suite" {} +
}

# Runs a command there, as root; its output is the command's. Its root is a mount, so that it can make
# mounts, and systems, of its own.
#   on_system ROOT COMMAND [ARGUMENT...]
on_system() {
  # shellcheck disable=SC2016
  unshare --mount --pid --fork --kill-child sh -c '
    mount --bind "$1" "$1" && mount -t proc proc "$1/proc" &&
      mount -t devpts -o newinstance,ptmxmode=0666 devpts "$1/dev/pts" &&
      root=$1 display=$2 && shift 2 &&
      exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 LANGUAGE=en \
        DISPLAY="$display" DEBIAN_FRONTEND=noninteractive chroot "$root" "$@"' \
    - "$1" "${DISPLAY:-}" "${@:2}"
}

# The same as a user without rights, whose home is in /tmp.
#   user_on_system ROOT COMMAND [ARGUMENT...]
user_on_system() {
  on_system "$1" setpriv --reuid=nobody --regid=nogroup --clear-groups \
    sh -c 'mkdir -p /tmp/user && HOME=/tmp/user exec "$@"' - "${@:2}"
}

# The names of all files there, but for those of nobody, packages that have been fetched, what debconf
# keeps, and what a print server keeps: its queues with their PPD files, lists of models, logs and jobs.
#   list_files ROOT
list_files() {
  local place places=()
  for place in proc dev tmp var/cache/{apt/archives,debconf} etc/cups run/cups var/{cache,log,spool}/cups; do
    places+=(-path "./$place" -prune -o)
  done
  (cd "$1" && find . "${places[@]}" -print) | sort
}

#   remove_system ROOT
remove_system() {
  rm -rf --one-file-system "${1:?}"
}
