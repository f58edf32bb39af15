#!/usr/bin/env bash
# Checks format and style of this project's own code: clang-format over every source, clang-tidy and
# Clang's own warnings (for its MinGW target) over every source that the given build compiles.
# Usage: lint.sh format | lint.sh tidy BUILD_DIR [PATH_PART...]
# With PATH_PARTs, tidy looks only at sources whose path has one of them. It remembers in BUILD_DIR
# that all were clean, and looks again only when a source has changed since.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  format)
    git ls-files -co --exclude-standard -- '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
    echo "every source is formatted"
    ;;
  tidy)
    build=${2:?the build folder is missing}
    shift 2
    stamp=$build/tidy$(printf '%s' "$*" | tr -c 'a-z0-9' '_').stamp
    if [ -e "$stamp" ] && [ -z "$(git ls-files -co --exclude-standard -- \
      '*.h' '*.cpp' .clang-tidy 'CMakeLists.txt' '*/CMakeLists.txt' '*.cmake' '*.idl' |
      xargs -I{} find {} -newer "$stamp" -print -quit)" ]; then
      echo "nothing has changed since clang-tidy last had nothing to say"
      exit 0
    fi
    started=$(mktemp)
    # Clang does not look for GCC's C++ library of this target by itself.
    library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
    arguments=(--extra-arg=--target=x86_64-w64-mingw32 --extra-arg=-nostdlibinc)
    for folder in "$library" "$library/x86_64-w64-mingw32" "$library/backward" \
      /usr/x86_64-w64-mingw32/include; do
      arguments+=("--extra-arg=-isystem$folder")
    done
    sources=$(python3 - "$build/compile_commands.json" "$PWD" "$@" <<'PY'
import json, sys
database, root, parts = sys.argv[1], sys.argv[2] + "/", sys.argv[3:]
files = {entry["file"] for entry in json.load(open(database))}
own = (f for f in files if f.startswith(root) and not f.startswith(root + "build/") and f.endswith(".cpp"))
print("\n".join(sorted(f for f in own if not parts or any(part in f for part in parts))))
PY
    )
    [ -n "$sources" ] || { echo "no sources to look at in $build" >&2; exit 1; }
    printf '%s\n' "$sources" |
      xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p "$build" "${arguments[@]}" \
        2> >(grep -vE '^[0-9]+ warnings? generated' >&2)
    mv "$started" "$stamp"
    echo "clang-tidy has nothing to say about $(printf '%s\n' "$sources" | wc -l) sources"
    ;;
  *)
    sed -n '2,7s/^# //p' "$0" >&2
    exit 2
    ;;
esac
