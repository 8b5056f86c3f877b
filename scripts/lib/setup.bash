# Sourced by the scripts: what they need before they can do their own work. Bash and Debian's base
# system are enough, or macOS with Xcode and Homebrew.

set -euo pipefail
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

fail() {
  echo "${0##*/}: $*" >&2
  exit 1
}

# The releases of Debian that the project is tried on.
releases=(bookworm trixie)

# The packages of sections of packaging/debian-packages, one a line.
#   packages_of SECTION...
packages_of() {
  local section
  for section; do
    sed -n "/^\[$section\]/,/^\[/{s/#.*//;/^\[/d;/./p}" "$project/packaging/debian-packages"
  done
}

# Those of them that are not installed, nor provided by another one that is.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${db:Status-Status}:${Package},${Provides}\n' |
    sed -n 's/([^)]*)//g;s/^installed://p' | tr -s ', ' '\n')
  comm -23 <(packages_of "$@" | sort -u) <(sort -u <<<"$installed")
}

# Installs the packages of packaging/Brewfile that are missing.
install_formulae() {
  command -v brew >/dev/null ||
    fail "there is no brew; install Homebrew, or what packaging/Brewfile names in another way and build with cmake --workflow --preset dev"
  local brewfile=$project/packaging/Brewfile
  brew bundle check --quiet --file "$brewfile" >/dev/null || brew bundle --no-upgrade --file "$brewfile" >&2 ||
    fail "brew could not install what $brewfile names; its messages are above"
}

# What there is to say where the names of packages are not known to be right; nothing elsewhere.
word_on_unknown_release() {
  local codename name
  codename=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
  name=$(sed -n 's/^PRETTY_NAME="\(.*\)"$/\1/p' /etc/os-release)
  [[ " ${releases[*]} " == *" $codename "* ]] ||
    echo "This is ${name:-an unknown system}; trying the packages of Debian's ${releases[*]}, and clang as it comes."
}

# Installs the packages of sections of packaging/debian-packages that are missing; needs root only then.
#   install_packages SECTION...
install_packages() {
  if [[ $(uname) == Darwin ]]; then
    install_formulae
    return
  fi
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
    fail "this is not a Debian system; install what packaging/debian-packages names and build with cmake --workflow --preset dev"
  local section missing as_root=()
  for section in "${@:?which sections}"; do
    grep -qxF "[$section]" "$project/packaging/debian-packages" || fail "packaging/debian-packages has no section $section"
  done
  mapfile -t missing < <(missing_packages "$@")
  ((${#missing[@]})) || return 0
  if ((EUID != 0)); then
    command -v sudo >/dev/null ||
      fail "these packages are missing, and there is no sudo to install them; as root run: apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  local log=$project/build/packages.log word
  mkdir -p "$project/build" 2>/dev/null || fail "cannot write to $project"
  word=$(word_on_unknown_release)
  [[ -z $word ]] || echo "$word"
  echo "Installing ${#missing[@]} Debian packages, which takes a few minutes: ${missing[*]}"
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
  # A fresh system knows no packages, an old list may name versions that are gone.
  { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; } \
    >"$log" 2>&1 </dev/null || {
    tail -n 30 "$log" >&2
    fail "apt-get could not install the packages; its last messages are above, all are in $log${word:+. $word}"
  }
}

# One script at a time works in build/; a build folder that came with a moved checkout is made anew.
use_build_folder() {
  local preset=$1 cache=$project/build/$1/CMakeCache.txt
  mkdir -p "$project/build" 2>/dev/null && : 2>/dev/null >>"$project/build/.lock" ||
    fail "cannot write to $project/build"
  exec 9>"$project/build/.lock"
  if command -v flock >/dev/null; then  # not on macOS
    flock -n 9 || { echo "Waiting for another script that is using $project/build" >&2; flock 9; }
  fi
  if [[ -e $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$project" "$cache"; then
    rm -rf "${project:?}/build/$preset"
  fi
}

# Runs a command that ends with this script, with all that it has started: the compilers of a build, a
# virtual display. Ended by a signal, the script itself would leave them running.
#   ending_with_us COMMAND [ARGUMENT...]
ending_with_us() {
  local job status=0
  set -m  # a process group of its own
  "$@" </dev/null &
  job=$!
  set +m
  # shellcheck disable=SC2064  # the job of now
  trap "kill -TERM -- -$job 2>/dev/null; wait $job; exit 143" TERM
  # shellcheck disable=SC2064
  trap "kill -TERM -- -$job 2>/dev/null; wait $job; exit 130" INT
  wait "$job" || status=$?
  trap - TERM INT
  return "$status"
}

# Called by build, which has said whether the tests are left out.
configure_and_build() {
  cd "$project" && cmake --preset "$1" ${untested:+-D BUILD_TESTING=OFF} &&
    cmake --build --preset "$1" ${2:+--target "${@:2}"}
}

# Builds a preset, or only some targets of it, quietly unless it fails. The tests are left out where what
# they are built with is not installed.
#   build PRESET [TARGET...]
build() {
  local preset=$1 untested=
  use_build_folder "$preset"
  local log=$project/build/$preset.log
  [[ $(uname) == Darwin || -z $(missing_packages build-tests) ]] || untested=1
  echo "Building into build/$preset"
  ending_with_us configure_and_build "$preset" "${@:2}" 9>&- >"$log" 2>&1 || {
    cat "$log" >&2
    fail "the build failed; its messages are above and in $log"
  }
}
