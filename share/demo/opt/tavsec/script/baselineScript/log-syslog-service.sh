#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(active_service rsyslog syslog-ng) || exit
show "${value:-未启用}"
[ -n "$value" ]
