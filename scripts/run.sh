#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs what is missing, builds a release and opens the window on the simulated camera.
# Arguments go to camera-host (try --help).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh run

. scripts/quietly.sh
quietly "configuring" cmake --preset release -DOBFT_BUILD_BENCH=OFF -DOBFT_BUILD_TESTS=OFF -B build/run
quietly "building" cmake --build build/run
exec build/run/bin/camera-host "$@"
