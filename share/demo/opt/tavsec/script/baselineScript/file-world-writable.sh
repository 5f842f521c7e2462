#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Directories closed to the caller are passed over: what lies in them is not open to everybody.
value=$(find /etc /usr/bin /usr/sbin /usr/local/bin /usr/local/sbin -xdev -type f -perm -0002 2>/dev/null | wc -l)
show "$value"
[ "$value" -eq 0 ]
