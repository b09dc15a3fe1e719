#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the fuzz targets and runs each of them for a while (default: 60 seconds). It starts with the
# inputs of fuzz/seeds; those that it finds are kept in build/fuzz/inputs for the next run, and one
# that ends badly is left in build/fuzz.
# Usage: scripts/fuzz.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
./scripts/install-deps.sh run fuzz
cmake --preset fuzz
cmake --build --preset fuzz --parallel "$(nproc)"

for seeds in fuzz/seeds/*; do
    target="$(basename "$seeds")"
    inputs="build/fuzz/inputs/$target"
    mkdir -p "$inputs"
    echo "fuzz_$target, $seconds s"
    options=(-max_total_time="$seconds" -max_len=16384 -timeout=20 -rss_limit_mb=4096
        -print_final_stats=1 -artifact_prefix="build/fuzz/$target-")
    [ "$target" != description ] || options+=(-dict=fuzz/description.dict)
    "./build/fuzz/bin/fuzz_$target" "${options[@]}" "$inputs" "$seeds" 2>&1 | tail -n 6
done
