#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs the Debian packages that the named groups need and that are missing.
# Usage: install-deps.sh [run] [test] [qt6] [bench] [tidy] [fuzz] [aarch64]     (default: run)
# Quiet when nothing is missing; stops with a clear message when it cannot install.
set -euo pipefail

common_packages="cmake ninja-build g++ gcc ccache pkg-config libaravis-dev libusb-1.0-0-dev libpugixml-dev
  librsvg2-bin fonts-noto-cjk fonts-dejavu-core"
run_packages="$common_packages qtbase5-dev qtbase5-dev-tools qttools5-dev-tools"
check_packages="aravis-tools aravis-tools-cli binutils clang-format python3"
test_packages="$run_packages $check_packages python3-pyqt5"
qt6_packages="$common_packages $check_packages qt6-base-dev qt6-base-dev-tools qt6-l10n-tools
  qt6-tools-dev-tools"
package_packages="lintian dpkg-dev gzip"
bench_packages="$run_packages libbenchmark-dev"
tidy_packages="$test_packages clang-tidy"
fuzz_packages="$run_packages clang"
aarch64_packages="$test_packages crossbuild-essential-arm64 qtbase5-dev:arm64 libaravis-dev:arm64
  libpugixml-dev:arm64 libusb-1.0-0-dev:arm64 qemu-user-static"

packages=""
for group in "${@:-run}"; do
    name="${group}_packages"
    if [ -z "${!name:-}" ]; then
        echo "install-deps: no package group '$group'" >&2
        exit 2
    fi
    packages="$packages ${!name}"
done

installed() { dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'ok installed'; }

missing=""
for package in $(printf '%s\n' $packages | sort -u); do
    installed "$package" || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

if ! command -v apt-get >/dev/null; then
    echo "install-deps: these packages are missing and there is no apt-get to install them:$missing" >&2
    exit 1
fi
elevate=""
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "install-deps: run as root, or install yourself:$missing" >&2
        exit 1
    fi
    elevate="sudo"
fi
case "$missing" in
*:arm64*) $elevate dpkg --add-architecture arm64 ;;
esac
echo "install-deps: installing$missing"
export DEBIAN_FRONTEND=noninteractive
if ! { $elevate apt-get update -qq && $elevate apt-get install -y -qq --no-install-recommends $missing >/dev/null; }; then
    echo "install-deps: could not install:$missing" >&2
    exit 1
fi
