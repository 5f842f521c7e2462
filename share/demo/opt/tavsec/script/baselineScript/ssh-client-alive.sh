#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# The files may give it as 300, 300s or 5m; unset and 0 never ask.
value=$(sshd_value clientaliveinterval) || exit
show "$value"
case $value in
    *[0-9]m) seconds=${value%m} && between "$seconds" 1 5 ;;
    *) between "${value%s}" 1 300 ;;
esac
