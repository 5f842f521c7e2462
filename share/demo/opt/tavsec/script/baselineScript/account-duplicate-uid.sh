#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

need_file /etc/passwd
value=$(cut -d : -f 3 /etc/passwd | sort -n | uniq -d | one_line)
show "${value:-无}"
[ -z "$value" ]
