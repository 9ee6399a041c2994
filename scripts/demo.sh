#!/usr/bin/env bash
# Installs what the build needs (scripts/setup.sh), builds the demo application and starts it
# on its sample database. Arguments go to the demo (see --help), e.g.
#   ./scripts/demo.sh --db postgresql://user@127.0.0.1:5432/db
# Without a display the demo renders its window to a picture and prints where it is.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
cd "$root"
[ -f build/CMakeCache.txt ] || cmake --preset release >/dev/null
cmake --build build --target vandor-demo -j"$(nproc)"
exec build/bin/vandor-demo "$@"
