#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

check_sysctl net.ipv4.tcp_syncookies 1 2
