#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

check_sysctl net.ipv4.ip_forward 0 0
