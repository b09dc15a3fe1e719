#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs what is missing, builds a release and opens the window on the simulated camera.
# Arguments go to camera-host (try --help).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh run

log="$(mktemp)"
trap 'rm -f "$log"' EXIT
quietly() {
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        exit 1
    fi
}
quietly cmake --preset release -DOBFT_BUILD_BENCH=OFF -DOBFT_BUILD_TESTS=OFF -B build/run
quietly cmake --build build/run
rm -f "$log"
exec build/run/bin/camera-host "$@"
