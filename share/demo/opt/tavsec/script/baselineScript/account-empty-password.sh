#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

need_file /etc/shadow
value=$(awk -F: '$2 == "" { print $1 }' /etc/passwd /etc/shadow | one_line)
show "${value:-无}"
[ -z "$value" ]
