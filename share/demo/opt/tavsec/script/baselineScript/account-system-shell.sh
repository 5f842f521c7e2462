#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# An empty shell field means /bin/sh.
need_file /etc/passwd
uid_min=$(login_def UID_MIN) || exit
value=$(awk -F: -v min="${uid_min:-1000}" '
    $3 > 0 && $3 < min + 0 && $7 !~ /\/(nologin|false|sync|halt|shutdown)$/ { print $1 }' /etc/passwd | one_line)
show "${value:-无}"
[ -z "$value" ]
