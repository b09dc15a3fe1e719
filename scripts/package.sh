#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes Debian packages in build/packages: library, development files, camera-host.
# Usage: scripts/package.sh [amd64|arm64 ...]   (this machine's by default; arm64 is cross-built)
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/quietly.sh
native="$(dpkg --print-architecture)"
mkdir -p build/packages

# What cpack does otherwise than Debian: pages of the manual are compressed, and libraries tell the
# linker by a trigger, not by scripts.
polish() { # PACKAGE
    local tree
    tree="$(mktemp -d)"
    dpkg-deb -R "$1" "$tree"
    find "$tree/usr/share/man" -name '*.1' -exec gzip -9n {} + 2>/dev/null || true
    if [ -f "$tree/DEBIAN/postinst" ]; then
        rm "$tree/DEBIAN/postinst" "$tree/DEBIAN/postrm"
        echo "activate-noawait ldconfig" >"$tree/DEBIAN/triggers"
    fi
    (cd "$tree" && find usr -type f -exec md5sum {} + >DEBIAN/md5sums)
    dpkg-deb --root-owner-group -Zxz -b "$tree" "$1" >/dev/null
    rm -rf "$tree"
}
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
    for package in "$build"/packages/*.deb; do
        polish "$package"
    done
    mv "$build"/packages/*.deb build/packages/
    lintian --fail-on error,warning --allow-root build/packages/*_"$architecture".deb
done
ls -l build/packages
