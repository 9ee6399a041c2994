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
    libclang-rt-14-dev
    llvm
    # Qt: the engine suite talks to the databases through QtSql.
    qt6-base-dev
    libqt6sql6-sqlite
    libqt6sql6-psql
    libqt6sql6-mysql
    libqt6sql6-ibase
    qt6-tools-dev
    qt6-tools-dev-tools
    libqt6opengl6-dev
    qt6-svg-dev
    qt6-image-formats-plugins
    fonts-dejavu-core
    # Real-window screenshots of the demo.
    xvfb
    xauth
    imagemagick
    # Database engines the printed SQL is run on (private instances only).
    postgresql-15
    mariadb-server
    mariadb-client
    firebird3.0-server
    firebird3.0-utils
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

# Package scripts must not start the machine-wide database services: the
# tests run private instances on loopback only. policy-rc.d (exit 101) tells
# invoke-rc.d to leave services alone while we install; an existing policy
# is put back afterwards.
policy=/usr/sbin/policy-rc.d
saved_policy=""
if [[ -e "$policy" ]]; then
    saved_policy=$(mktemp)
    run "${SUDO[@]}" cp -p "$policy" "$saved_policy"
fi
restore_policy() {
    if [[ -n "$saved_policy" ]]; then
        "${SUDO[@]}" cp -p "$saved_policy" "$policy"
        rm -f "$saved_policy"
    else
        "${SUDO[@]}" rm -f "$policy"
    fi
}
trap 'restore_policy; rm -f "$log"' EXIT
printf '#!/bin/sh\nexit 101\n' | run "${SUDO[@]}" tee "$policy"
run "${SUDO[@]}" chmod 755 "$policy"

run "${SUDO[@]}" apt-get update -qq
run "${SUDO[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
