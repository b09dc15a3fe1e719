#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes Debian packages in build/packages: library, development files, camera-host.
# Usage: scripts/package.sh [amd64|arm64 ...]   (this machine's by default; arm64 is cross-built)
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/quietly.sh
native="$(dpkg --print-architecture)"
mkdir -p build/packages
for architecture in "${@:-$native}"; do
    groups="run package"
    toolchain=()
    if [ "$architecture" != "$native" ]; then
        [ "$architecture" = arm64 ] || { echo "package: no recipe for $architecture" >&2; exit 2; }
        groups="run package aarch64"
        toolchain=(-DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/aarch64-linux-gnu.cmake")
    fi
    ./scripts/install-deps.sh $groups
    build="build/package-$architecture"
    # Debian's own compiler flags, and its tools' view of the processor. Paths of this machine stay
    # out of the result.
    environment=(env DEB_HOST_ARCH="$architecture" $(dpkg-architecture -a "$architecture" -f 2>/dev/null))
    eval "$("${environment[@]}" dpkg-buildflags --export=sh)"
    quietly "configuring $architecture" "${environment[@]}" cmake -S . -B "$build" -G Ninja \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_SKIP_INSTALL_RPATH=ON \
        -DCMAKE_INSTALL_LIBDIR="lib/$(dpkg-architecture -a "$architecture" -q DEB_HOST_MULTIARCH 2>/dev/null)" \
        -DOBFT_BUILD_TESTS=OFF "${toolchain[@]}"
    quietly "building $architecture" cmake --build "$build"
    (cd "$build" && quietly "packing $architecture" "${environment[@]}" cpack -B packages) 
    mv "$build"/packages/*.deb build/packages/
    lintian --fail-on error,warning --allow-root build/packages/*_"$architecture".deb
done
ls -l build/packages
