#!/usr/bin/env bash
# Shows the product at work: installs what is missing, builds, registers the server for the current
# user of a Wine prefix of its own, and opens a page in the sample host.
#
#   scripts/demo.sh [URL]
#
# Without a URL the page is samples/index.html from a local HTTP server. The notifications that the
# host receives are printed as they come. With a display the window stays until it is closed;
# without one it is opened under Xvfb and closed when the page is loaded. The last line is the path
# of the screenshot.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib/setup.sh
. scripts/lib/setup.sh
# shellcheck source=wine/prefix.sh
. wine/prefix.sh

url=${1:-}
demo=$KZ_ROOT/build/demo
bin=$KZ_ROOT/build/mingw/bin
screenshot=$demo/screenshot.png

kz_install_packages "${KZ_BUILD_PACKAGES[@]}" "${KZ_WINE_PACKAGES[@]}"
kz_fetch_engine
kz_configure_and_build mingw kz_engine_files kz_wine_layer KZCEFComWrapper kzCefSubProc kzhost pelkor
mkdir -p "$demo"

# Wine asks for the display once, when its first program starts.
quit=()
if [ -z "${DISPLAY:-}" ]; then
  quit=(--quit)
fi
kz_ensure_display
kz_prepare_engine_prefix "$demo/wineprefix"

server_pid=
end_demo() {
  [ -z "$server_pid" ] || kill "$server_pid" 2>/dev/null || true
  # The prefix is the demo's own; its last programs must not outlive the display.
  wineserver -k >/dev/null 2>&1 || true
  kz_end_helpers
}
trap end_demo EXIT

kz_say "registering the server for the current user"
wine regsvr32 /s /n /i:user "$(winepath -w "$bin/KZCEFComWrapper.dll" 2>/dev/null)" ||
  kz_fail "the server could not be registered"

if [ -z "$url" ]; then
  coproc SERVER { exec python3 -u scripts/lib/serve.py samples; }
  server_pid=$SERVER_PID
  read -r -t 20 url <&"${SERVER[0]}" || kz_fail "the local HTTP server did not start"
fi

kz_say "opening $url"
rm -f "$screenshot"
wine "$bin/kzhost.exe" --console --cache "$(winepath -w "$demo/cache" 2>/dev/null)" \
  --screenshot "$(winepath -w "$screenshot" 2>/dev/null)" ${quit[@]+"${quit[@]}"} "$url" ||
  kz_fail "the sample host ended with an error"
[ -s "$screenshot" ] || kz_fail "the sample host left no screenshot"

kz_say "the screenshot is"
printf '%s\n' "$screenshot"
