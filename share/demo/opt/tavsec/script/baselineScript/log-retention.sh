#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# How often times how many; what stands for the system log alone overrides the general setting.
need_file /etc/logrotate.conf
set -- /etc/logrotate.conf
for file in /etc/logrotate.d/rsyslog /etc/logrotate.d/syslog; do
    [ ! -r "$file" ] || set -- "$@" "$file"
done
value=$(awk '
    BEGIN { length_of["daily"] = 1; length_of["weekly"] = 7; length_of["monthly"] = 30; length_of["yearly"] = 365 }
    FILENAME == "/etc/logrotate.conf" && /\{/ { nextfile }
    $1 in length_of { days = length_of[$1] }
    $1 == "rotate" { count = $2 }
    END { if (days && count) print days * count }' "$@")
show "$value"
between "$value" 180 99999
