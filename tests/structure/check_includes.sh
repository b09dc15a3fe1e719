#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks that every file of src/ and platform/ includes only its own folder and folders to its left.
set -euo pipefail
cd "${1:?usage: check_includes.sh SOURCE_DIR}"

# Left to right: who may be included by whom.
order="basetools styledctl device model reading tree pages main api"
# Exceptions, "folder/File.cpp includes folder/Header.h: reason". None at present.
exceptions=""

position() {
    local i=0 folder
    for folder in $order; do
        if [ "$folder" = "$1" ]; then echo "$i"; return; fi
        i=$((i + 1))
    done
    echo -1
}

failed=0
checked=0
while IFS= read -r file; do
    case "$file" in
    src/resources/*) continue ;;
    src/*) folder="$(cut -d/ -f2 <<<"$file")" ;;
    platform/*) folder="$(cut -d/ -f2 <<<"$file")" ;;
    esac
    own="$(position "$folder")"
    while IFS= read -r included; do
        target="$(cut -d/ -f1 <<<"$included")"
        other="$(position "$target")"
        checked=$((checked + 1))
        [ "$other" -ge 0 ] || continue
        if [ "$other" -gt "$own" ] && ! grep -qF "$file includes $included" <<<"$exceptions"; then
            echo "$file includes $included, which lies to its right"
            failed=1
        fi
    done < <(sed -nE 's/^#include "([^"]+)".*/\1/p' "$file")
done < <(find src platform -name '*.h' -o -name '*.cpp')
[ "$checked" -gt 100 ] || { echo "only $checked includes found"; exit 1; }
exit "$failed"
