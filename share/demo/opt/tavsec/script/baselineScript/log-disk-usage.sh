#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(timeout 5 df -P /var/log 2>/dev/null | awk 'NR == 2 { print $5 }')
[ -n "$value" ] || cannot "无法读取 /var/log 所在分区的使用率"
show "$value"
between "${value%\%}" 0 80
