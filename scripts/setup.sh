#!/usr/bin/env bash
# Installs the Debian 12 packages needed to build and test VandorRT.
# Idempotent: prints nothing and does nothing when everything is present.
set -euo pipefail

PACKAGES=(
    build-essential
    cmake
    ninja-build
    g++
    git
    libgtest-dev
    libgmock-dev
    googletest
    libbenchmark-dev
    nlohmann-json3-dev
    sqlite3
    libsqlite3-dev
    clang
)

missing=()
for pkg in "${PACKAGES[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null || true)
    if [[ "$status" != "install ok installed" ]]; then
        missing+=("$pkg")
    fi
done

if [[ ${#missing[@]} -eq 0 ]]; then
    exit 0
fi

SUDO=()
if [[ $(id -u) -ne 0 ]]; then
    if command -v sudo >/dev/null 2>&1; then
        SUDO=(sudo)
    else
        echo "setup.sh: missing packages (${missing[*]}); run as root or install sudo" >&2
        exit 1
    fi
fi

echo "setup.sh: installing ${missing[*]}"

# Stay quiet on success, show apt's output when something goes wrong.
log=$(mktemp)
trap 'rm -f "$log"' EXIT
run() {
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        echo "setup.sh: failed: $*" >&2
        exit 1
    fi
}

run "${SUDO[@]}" apt-get update -qq
run "${SUDO[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
