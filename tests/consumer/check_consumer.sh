#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs a build, builds a small C program against the installed tree (once with the CMake
# package, once with pkg-config) and runs it.
set -euo pipefail
build="$1" source="$2" cmake="$3" cc="$4" cxx="$5" sanitize="${6:-}" toolchain="${7:-}" emulator="${8:-}"

work="$build/consumer"
rm -rf "$work"
"$cmake" --install "$build" --prefix "$work/installed" >/dev/null
# The installed tree must not depend on where it was made.
mv "$work/installed" "$work/moved"
prefix="$work/moved"
flags="${sanitize:+-fsanitize=$sanitize}"

"$cmake" -S "$source" -B "$work/build" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
    ${toolchain:+-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_FIND_ROOT_PATH="$prefix"} >/dev/null
"$cmake" --build "$work/build" >/dev/null
$emulator "$work/build/consumer"

pc="$(dirname "$(find "$prefix" -name obfeaturetree.pc)")"
export PKG_CONFIG_PATH="$pc${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}"
resources="$(pkg-config --variable=resourcedir obfeaturetree)"
[ -f "$resources/Client_Default.rcc" ] || { echo "no resources in $resources"; exit 1; }
"$cc" $flags -Wall -Werror -std=c11 $(pkg-config --cflags obfeaturetree) -c "$source/main.c" \
    -o "$work/main.o"
pkg-config --libs obfeaturetree | grep -q -- -lOBFeatureTree
