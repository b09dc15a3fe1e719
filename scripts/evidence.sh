#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Runs everything that could show a fault for a set time (default: 60 minutes, builds not counted),
# and prints one table: what, how often, what failed. Logs are left in build/evidence.
# Usage: scripts/evidence.sh [minutes]
set -uo pipefail
cd "$(dirname "$0")/.."
. scripts/quietly.sh
seconds=$((${1:-60} * 60))
logs="$PWD/build/evidence"
rm -rf "$logs"
mkdir -p "$logs"
export QT_QPA_PLATFORM=offscreen

./scripts/install-deps.sh test bench fuzz aarch64 || exit 1
for preset in release asan tsan fuzz aarch64; do
    quietly "configuring $preset" cmake --preset "$preset" &&
        quietly "building $preset" cmake --build --preset "$preset" --parallel "$(nproc)" || exit 1
done

rows=()
row() { # WHAT HOW-OFTEN FAILED
    rows+=("$(printf '%-34s %-44s %s' "$1" "$2" "$3")")
    printf '%s\n' "${rows[-1]}"
}
share() { echo $((seconds * $1 / 100)); } # PERCENT

# All tests of a preset, as far as they come in their share of the time.
tests() { # PRESET PERCENT
    local log="$logs/tests-$1.log" passed failed
    timeout "$(share "$2")" ctest --preset "$1" -j "$(nproc)" >"$log" 2>&1
    passed="$(grep -cE '[0-9]+/[0-9]+ Test .* Passed' "$log")"
    failed="$(grep -E '[0-9]+/[0-9]+ Test .*\*\*\*' "$log" | grep -v Skipped | awk '{print $4}' | xargs)"
    row "tests, $1" "$passed passed of $(ctest --preset "$1" -N 2>/dev/null | sed -n 's/^Total Tests: //p')" "${failed:-none}"
}

# One test program again and again, each time with another number in a variable of its environment.
again() { # WHAT PROGRAM PERCENT UNIT VARIABLE STEP
    local end=$((SECONDS + $(share "$3"))) rounds=0 failed="" log
    while [ "$rounds" -eq 0 ] || [ "$SECONDS" -lt "$end" ]; do
        rounds=$((rounds + 1))
        log="$logs/$2-$rounds.log"
        if env "$5=$((rounds * $6))" "build/release/bin/$2" >"$log" 2>&1; then rm -f "$log"; else failed="$failed $rounds"; fi
    done
    row "$1" "$rounds $4" "${failed:-none}"
}

tests release 8
tests asan 24
tests tsan 12
tests aarch64 18
again "fault matrix" tst_faultmatrix 4 "rounds" OBFT_ROUND 1
again "storm, a seed each" tst_storm 10 "storms" OBFT_STORM_SEED 1

# The two soaks of tst_soak; what its last line says of memory is compared with the first.
soak() { # WHAT FUNCTION VARIABLE NUMBER UNIT
    local log="$logs/$2.log" code
    # Without malloc's caches, which count as used and drift.
    env "$3=$4" QTEST_FUNCTION_TIMEOUT=3600000 \
        GLIBC_TUNABLES=glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0 build/release/bin/tst_soak "$2" >"$log" 2>&1
    code=$?
    row "$1" "$4 $5, $(grep -oE '[0-9]+ bytes' "$log" | sed -n '1p;$p' | xargs | sed 's/ bytes / to /')" \
        "$([ "$code" -eq 0 ] && echo none || echo "see $2.log")"
}
soak "soak, openings" nothingIsLeftBehind OBFT_SOAK_OPENINGS "$(($(share 6) * 4 / 10 * 10 + 20))" openings
# A minute of use passes in three to six seconds.
soak "soak, one window" nothingGrowsWithTime OBFT_SOAK_MINUTES "$(($(share 7) / 4 + 2))" "minutes of use"

targets=(fuzz/seeds/*)
for seeds in "${targets[@]}"; do
    target="$(basename "$seeds")"
    log="$logs/fuzz-$target.log"
    mkdir -p "build/fuzz/inputs/$target"
    "build/fuzz/bin/fuzz_$target" -max_total_time=$(($(share 9) / ${#targets[@]} + 1)) -max_len=16384 \
        -timeout=20 -rss_limit_mb=4096 -print_final_stats=1 -artifact_prefix="$logs/$target-" \
        "build/fuzz/inputs/$target" "$seeds" >"$log" 2>&1
    code=$?
    row "fuzz, $target" "$(sed -n 's/^stat::number_of_executed_units: //p' "$log") inputs" \
        "$([ "$code" -eq 0 ] && echo none || echo "see fuzz-$target.log")"
done

# Without arguments, which some take for the name of a description or of a part.
for bench in build/release/bin/bench_*; do
    name="$(basename "$bench")"
    timeout 900 "$bench" >"$logs/$name.log" 2>"$logs/$name.err"
    code=$?
    row "$name" "$(grep -c '[0-9]' "$logs/$name.log") lines with numbers" \
        "$([ "$code" -eq 0 ] && echo none || echo "see $name.err")"
done

echo
printf '%-34s %-44s %s\n' "What" "How often" "What failed"
printf '%s\n' "${rows[@]}"
