#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs this build into a folder of its own and opens the window from Python there: an
# interpreter has no resources beside itself, so the installed ones must be found.
# Usage: check_python_host.sh BUILD HOST CMAKE
set -euo pipefail
build="$1" host="$2" cmake="$3"
if ! /usr/bin/python3 -c 'import PyQt5.QtWidgets' 2>/dev/null; then
    echo "no PyQt5 (Debian: python3-pyqt5)"
    exit 77
fi
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
"$cmake" --install "$build" --prefix "$folder/installed" >/dev/null
library="$(find "$folder/installed" -name libOBFeatureTree.so)"
output="$(HOME="$folder" /usr/bin/python3 "$host" "$library" "$folder/window.png" 2>&1)"
echo "$output"
[ -s "$folder/window.png" ] || { echo "no picture of the window"; exit 1; }
if grep -q "Theme has no colour" <<<"$output"; then
    echo "the installed resources were not found"
    exit 1
fi
