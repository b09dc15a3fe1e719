#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs a build, builds small programs against the installed tree (with the CMake package, one
# also with pkg-config) and runs them: one of its own, and the hosts that the guide for hosts shows.
set -euo pipefail
build="$1" source="$2" guide="$3" cmake="$4" cc="$5" cxx="$6" sanitize="${7:-}" toolchain="${8:-}"
emulator="${9:-}" qt="${10:?}"

work="$build/consumer"
rm -rf "$work"
"$cmake" --install "$build" --prefix "$work/installed" >/dev/null
# The installed tree must not depend on where it was made.
mv "$work/installed" "$work/moved"
prefix="$work/moved"
flags="${sanitize:+-fsanitize=$sanitize}"

# Each text between fences that follows a line with a file's name, "`host.c`:".
mkdir "$work/guide"
awk -v folder="$work/guide" '
    /^```/ { if (file && inside) file = ""; inside = !inside; next }
    inside && file { print > (folder "/" file) }
    !inside && /^`[a-z.]+`:$/ { file = substr($0, 2, length($0) - 3) }
' "$guide"

configure() { # FOLDER FURTHER ARGUMENTS
    "$cmake" -S "$source" -DGUIDE_SOURCES="$work/guide" -B "$@" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" \
        -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
        ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_FIND_ROOT_PATH="$prefix"}
}
configure "$work/build" >/dev/null
"$cmake" --build "$work/build" >/dev/null

# A host with the other Qt is refused, and told why; also one in which Qt itself lets both in.
output="$(configure "$work/other" -DHOST_QT_MAJOR=$((11 - qt)) -DQT_NO_CREATE_VERSIONLESS_TARGETS=ON 2>&1)" && { echo "a host of another Qt was accepted"; exit 1; }
if grep -q "file provided by \"Qt$((11 - qt))\"" <<<"$output"; then
    echo "no Qt $((11 - qt)) to try"
else
    grep -q "QT_MAJOR_VERSION" <<<"$output" || { echo "$output"; exit 1; }
fi

$emulator "$work/build/consumer"
for host in guide_cpp guide_c; do
    output="$($emulator "$work/build/$host" 2>&1)" || { echo "$host: $output"; exit 1; }
    grep -q "shown and read" <<<"$output" || { echo "$host did not show its features: $output"; exit 1; }
done

pc="$(dirname "$(find "$prefix" -name obfeaturetree.pc)")"
export PKG_CONFIG_PATH="$pc${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}"
resources="$(pkg-config --variable=resourcedir obfeaturetree)"
[ "$(pkg-config --variable=qtmajor obfeaturetree)" = "$qt" ] || { echo "pkg-config does not name the Qt"; exit 1; }
[ -f "$resources/Client_Default.rcc" ] || { echo "no resources in $resources"; exit 1; }
"$cc" $flags -Wall -Werror -std=c99 -pedantic-errors $(pkg-config --cflags obfeaturetree) -c "$source/main.c" \
    -o "$work/main.o"
pkg-config --libs obfeaturetree | grep -q -- -lOBFeatureTree
