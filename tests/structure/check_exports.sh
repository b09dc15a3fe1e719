#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks that the library exports exactly the functions that its public header declares.
set -euo pipefail
library="${1:?usage: check_exports.sh LIBRARY HEADER [NM]}"
header="${2:?}"
nm="${3:-nm}"
declared="$(grep -oE 'OB_FT_API int OB_FT_[A-Za-z]+' "$header" | awk '{print $3}' | sort)"
exported="$("$nm" -D --defined-only "$library" | awk '{print $3}' | sort)"
[ "$(wc -l <<<"$declared")" -eq 10 ] || { echo "the header declares other than ten functions"; exit 1; }
diff <(echo "$declared") <(echo "$exported")
