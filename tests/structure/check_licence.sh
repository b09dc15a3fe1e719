#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks that every source file names its licence near its top.
set -euo pipefail
cd "${1:?usage: check_licence.sh SOURCE_DIR}"
failed=0
while IFS= read -r file; do
    if ! head -4 "$file" | grep -q 'SPDX-License-Identifier: Apache-2.0'; then
        echo "$file has no SPDX line"
        failed=1
    fi
done < <(find include src platform hosts tests bench cmake scripts packaging \
    \( -name '*.h' -o -name '*.cpp' -o -name '*.c' -o -name '*.cmake' -o -name '*.sh' \
    -o -name 'CMakeLists.txt' \) -print)
exit "$failed"
