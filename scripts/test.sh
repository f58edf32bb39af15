#!/usr/bin/env bash
# Installs what is missing, builds, and runs everything that can be run: unit, contract and
# end-to-end tests, the portable logic under sanitizers, the fuzzers, the benchmarks' short run, and
# the checks of format and style. Arguments go to ctest (for instance: -L unit, -R Settings).
# ctest's summary comes last; the exit status is not 0 when anything failed.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib/setup.sh
. scripts/lib/setup.sh
# shellcheck source=wine/prefix.sh
. wine/prefix.sh

kz_install_packages "${KZ_BUILD_PACKAGES[@]}" "${KZ_WINE_PACKAGES[@]}" "${KZ_TEST_PACKAGES[@]}"
kz_fetch_engine
kz_configure_and_build native-sanitize
kz_configure_and_build mingw
# In this order: Wine asks for the display once, when its first program starts.
kz_ensure_display
kz_prepare_engine_prefix "$KZ_ROOT/build/wineprefix"

kz_keep_wine_server

kz_say "testing"
ctest --test-dir build/mingw -j "$(nproc)" --output-on-failure "$@"
