#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# A home may lie on a dead network mount, so no look takes longer than a few seconds.
need_file /etc/passwd
value=$(awk -F: '($3 == 0 || $3 >= 1000 && $3 < 60000) && $7 !~ /\/(nologin|false)$/ { print $1 ":" $6 }' /etc/passwd |
    while IFS=: read -r user home; do
        mode=$(timeout 3 stat -L -c '%04a' "$home" 2>/dev/null) || continue
        [ $((0$mode & ~0750)) -eq 0 ] || printf '%s\n' "$user"
    done | one_line)
show "${value:-无}"
[ -z "$value" ]
