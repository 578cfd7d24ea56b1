#!/usr/bin/env bash
# The program is built hardened, as Debian builds its packages: read from its
# ELF file, as hardening-check reads it.
#   hardening.sh <program>
set -euo pipefail
program=$1
dynamic=$(readelf -d "$program")
symbols=$(readelf --dyn-syms -W "$program")
failures=0
check() {
    if ! grep -Eq "$2" <<<"$3"; then
        echo "FAIL: $1"
        failures=$((failures + 1))
    fi
}
check "not a position-independent executable" 'FLAGS_1.*PIE' "$dynamic"
check "no immediate binding (-z now)" 'BIND_NOW|FLAGS_1.* NOW' "$dynamic"
check "no read-only relocations (-z relro)" 'GNU_RELRO' "$(readelf -l -W "$program")"
check "no stack protector" '__stack_chk_fail' "$symbols"
check "no checked functions (_FORTIFY_SOURCE)" '__[a-z]+_chk(@|$)' "$symbols"
[ "$failures" -eq 0 ]
