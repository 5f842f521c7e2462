#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Unset is the server's own list, which has none of these; a list after "-" only takes ciphers away.
value=$(sshd_value ciphers) || exit
case $value in
    -*) weak= ;;
    *) weak=$(printf '%s\n' "${value#[+^]}" | tr , '\n' | grep -E 'cbc|arcfour|^3des|^none$' | one_line) ;;
esac
show "${weak:-无}"
[ -z "$weak" ]
