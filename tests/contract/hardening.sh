#!/usr/bin/env bash
# usage: hardening.sh PROCESSOR PROBE FILE...
#
# Looks at what was built for its defences. Every function that a FILE exports begins with a landing place for indirect
# calls; where the compiler has told its options (-g of g++), each unit has those against smashed and jumped stacks.
# PROBE is an object file with a copy into a buffer whose size is only known at run time; "" when nothing is optimised.
# The notes of the linked files are no witness: the C library's own start files lack them.
set -euo pipefail

processor=$1 probe=$2
shift 2

fail() {
    echo "hardening: $*" >&2
    exit 1
}

case $processor in
    x86_64) landing='^endbr64' ;;
    aarch64) landing='^(paciasp|bti[[:space:]]+c)' ;;
    *) fail "nothing is known about $processor" ;;
esac
objdump=objdump
[[ $processor == "$(uname -m)" ]] || objdump=$processor-linux-gnu-objdump

for file; do
    count=$(readelf --dyn-syms -W "$file" | awk '$4 == "FUNC" && $7 != "UND"' | wc -l)
    [[ $count -gt 0 ]] || fail "$file exports no function"
    bare=$(awk -v landing="$landing" '
        FNR == NR { if ($4 == "FUNC" && $7 != "UND") { sub(/^0+/, "", $2); name[$2] = $8 }; next }
        { address = $1; sub(/:$/, "", address); $1 = ""; sub(/^ /, "") }
        address in name && $0 !~ landing { print name[address] ": " $0 }
    ' <(readelf --dyn-syms -W "$file") <("$objdump" -d --no-show-raw-insn "$file"))
    [[ -z $bare ]] || fail "$file: $(wc -l <<<"$bare") functions do not begin with a landing place, first ${bare%%$'\n'*}"
    units=$(readelf --debug-dump=info "$file" 2>/dev/null | grep 'DW_AT_producer.*GNU C++' || true)
    for option in -fstack-clash-protection -fstack-protector-strong; do
        [[ -z $units ]] || ! grep -v -q -e "$option" <<<"$units" || fail "$file: units without $option"
    done
    echo "hardening: ${file##*/}: $count functions, $(grep -c . <<<"$units" || true) units with their options"
done

[[ -z $probe ]] || nm "$probe" | grep -q __strcpy_chk || fail "copies into sized buffers are not checked"
