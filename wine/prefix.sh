# A Wine prefix that the engine runs in. Sourced after scripts/lib/setup.sh, not run.

# What prepare_prefix.py needs.
# shellcheck disable=SC2034  # Read by the scripts that install packages.
readonly KZ_WINE_PACKAGES=(fonts-liberation python3 python3-fonttools)

# kz_prepare_engine_prefix DIR [DLL]: kz_prepare_wine_prefix, and what the engine needs in there. The
# DLL is the target kz_wine_layer's, by default that of the preset mingw, and must have been built.
kz_prepare_engine_prefix() {
  kz_prepare_wine_prefix "$1"
  "$KZ_ROOT/wine/prepare_prefix.py" "$1" "${2:-$KZ_ROOT/build/mingw/wine/bcryptprimitives.dll}" ||
    kz_fail "the Wine prefix $1 could not be prepared for the engine"
}
