#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# A host accepts redirects as soon as "all" or the interface says so: the largest value counts.
value=$(cat /proc/sys/net/ipv4/conf/*/accept_redirects 2>/dev/null | sort -rn | head -n 1)
[ -n "$value" ] || cannot "无法读取内核参数 net.ipv4.conf.*.accept_redirects"
show "$value"
between "$value" 0 0
