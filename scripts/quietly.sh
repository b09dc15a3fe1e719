# SPDX-License-Identifier: Apache-2.0
# To be sourced. `quietly WHAT COMMAND...` runs a command whose output nobody wants to read, unless it
# fails: then all of it. Meanwhile it says what it does; a terminal sees how far ninja has come.
quietly() {
    local what="$1" log code=0 line
    shift
    log="$(mktemp)"
    if [ -t 1 ]; then
        "$@" 2>&1 | while IFS= read -r line; do
            printf '%s\n' "$line" >>"$log"
            case "$line" in
            \[*/*\]*) printf '\r%s %s\033[K' "$what" "${line%%]*}]" ;;
            esac
        done || code=$?
        printf '\r\033[K'
    else
        echo "$what"
        "$@" >"$log" 2>&1 || code=$?
    fi
    [ "$code" -eq 0 ] || cat "$log" >&2
    rm -f "$log"
    return "$code"
}
