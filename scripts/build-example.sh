#!/usr/bin/env bash
# Builds examples/minimal against an installed VandorRT, as a host application would:
# builds the libraries (build/, release preset, made when missing), installs them with their
# headers and CMake package into a prefix, configures the example with find_package(VandorRT)
# and builds it, then starts it once offscreen and checks it printed its statement.
#   scripts/build-example.sh [PREFIX]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${VD_BUILD_DIR:-$root/build}
prefix=$(realpath -m "${1:-$build/example/prefix}")
example_build=$build/example/build

[ -f "$build/CMakeCache.txt" ] || cmake --preset release -S "$root" >/dev/null
cmake --build "$build" --target vd_core vd_widgets -j2
rm -rf "$prefix" "$example_build"
cmake --install "$build" --prefix "$prefix" --component Development
cmake -S "$root/examples/minimal" -B "$example_build" -G Ninja \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Release
cmake --build "$example_build"

# The example shows its window until closed: offscreen, a few seconds of it are enough.
set +e
out=$(QT_QPA_PLATFORM=offscreen timeout 5 "$example_build/vandor-minimal" 2>/dev/null)
status=$?
set -e
if [ $status -ne 0 ] && [ $status -ne 124 ]; then
    echo "vandor-minimal failed with status $status" >&2
    exit 1
fi
grep -q '"PETS" P' <<<"$out" || { echo "vandor-minimal printed: $out" >&2; exit 1; }
echo "examples/minimal built against $prefix and ran"
