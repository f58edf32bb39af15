# Shared by the scripts: what the build needs, the build itself, and a Wine prefix to run it in.
# Sourced, not run. Everything is idempotent and quick when nothing has changed.

KZ_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
readonly KZ_ROOT

# Packages that every build needs, and what only the tests need on top.
readonly KZ_BUILD_PACKAGES=(
  g++-mingw-w64-x86-64-posix mingw-w64-tools libwine-dev wine wine64
  cmake ninja-build nlohmann-json3-dev googletest python3 python3-pip
  xvfb xauth
)
readonly KZ_TEST_PACKAGES=(
  clang clang-format clang-tidy libclang-rt-14-dev
  python3-pytest python3-pil procps xdotool
)

kz_say() { printf '==> %s\n' "$*" >&2; }
kz_fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# kz_install_packages PACKAGE...: installs those that are missing.
kz_install_packages() {
  local missing=() package
  for package in "$@"; do
    if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      missing+=("$package")
    fi
  done
  [ ${#missing[@]} -gt 0 ] || return 0

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      kz_fail "these packages are missing and there is neither root nor sudo to install them: ${missing[*]}"
    as_root=(sudo)
  fi
  kz_say "installing ${#missing[@]} packages: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq ||
    kz_say "the package lists could not be refreshed; trying with those that are there"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends -o Dpkg::Use-Pty=0 "${missing[@]}" |
    grep --line-buffered -E '^(Get:|Unpacking |Setting up )' >&2 || true
  for package in "${missing[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      kz_fail "package $package could not be installed"
  done
}

# kz_fetch_engine: the browser engine, unpacked where the build looks for it. Says itself what is wrong.
kz_fetch_engine() {
  # Debian's own Python is the one that has Debian's pip.
  /usr/bin/python3 "$KZ_ROOT/scripts/lib/engine.py" || exit 1
}

# kz_configure_and_build PRESET [TARGET...]: configures and builds, everything without targets.
kz_configure_and_build() {
  local preset=$1
  shift
  kz_say "building (preset $preset)"
  local log
  log=$(mktemp)
  if ! (cd "$KZ_ROOT" && cmake --preset "$preset" >"$log" 2>&1); then
    cat "$log" >&2
    rm -f "$log"
    kz_fail "the build could not be configured"
  fi
  rm -f "$log"
  (cd "$KZ_ROOT" && cmake --build --preset "$preset" ${1+--target "$@"} >&2) ||
    kz_fail "the build failed"
}

# kz_prepare_wine_prefix DIR: makes DIR the Wine prefix of this shell's programs, creating it once.
kz_prepare_wine_prefix() {
  export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
  # No offers to install Mono or Gecko, and no desktop integration.
  export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
  # Memory of its own for every thread: see wine/README.md.
  export MALLOC_ARENA_MAX=1024
  [ ! -e "$WINEPREFIX/system.reg" ] || return 0
  kz_say "preparing a Wine prefix"
  mkdir -p "$WINEPREFIX"
  wine wineboot -i >/dev/null 2>&1 || kz_fail "Wine could not create the prefix $WINEPREFIX"
  wineserver -w || true
}

# What this shell started and ends with it.
KZ_XVFB_PID=
KZ_WINE_SERVER_KEPT=
kz_end_helpers() {
  [ -z "$KZ_WINE_SERVER_KEPT" ] || wineserver -k >/dev/null 2>&1 || true
  [ -z "$KZ_XVFB_PID" ] || kill "$KZ_XVFB_PID" 2>/dev/null || true
}
trap kz_end_helpers EXIT

# kz_keep_wine_server: one Wine server for this shell's test programs, so that not each pays for its
# start, and windows that no window manager is asked about: where there is none, each would be waited
# for two seconds when it closes.
kz_keep_wine_server() {
  wineserver -p >/dev/null 2>&1 || return 0
  KZ_WINE_SERVER_KEPT=1
  # The first program brings Wine's services up, which inherit its output: a reader of a later
  # program's output must not have to wait for their end.
  wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 </dev/null ||
    kz_fail "Wine runs no program"
}

# kz_ensure_display: an X display for this shell's programs; starts Xvfb where there is none.
kz_ensure_display() {
  [ -z "${DISPLAY:-}" ] || return 0
  local pipe number
  pipe=$(mktemp -u)
  mkfifo "$pipe"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$pipe" >/dev/null 2>&1 &
  KZ_XVFB_PID=$!
  read -r -t 30 number <"$pipe" || kz_fail "Xvfb did not start"
  rm -f "$pipe"
  export DISPLAY=":$number"
}
