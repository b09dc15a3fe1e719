#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs what is missing, builds the `dev` preset (or --preset NAME) and runs all its tests.
# Further arguments go to ctest, for example: scripts/test.sh -R delegate
set -euo pipefail
cd "$(dirname "$0")/.."

preset=dev
if [ "${1:-}" = "--preset" ]; then
    preset="${2:?--preset needs a name}"
    shift 2
fi
case "$preset" in
tidy) group="tidy" ;;
qt6) group="qt6" ;;
aarch64) group="aarch64" ;;
release) group="test bench" ;;
*) group="test" ;;
esac
./scripts/install-deps.sh $group

. scripts/quietly.sh
quietly "configuring $preset" cmake --preset "$preset"
quietly "building $preset" cmake --build --preset "$preset" --parallel "$(nproc)"
# One more at a time than there are processors: tests also wait.
ctest --preset "$preset" -j "$(($(nproc) + 1))" "$@"
