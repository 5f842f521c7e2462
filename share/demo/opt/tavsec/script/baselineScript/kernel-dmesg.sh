#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

check_sysctl kernel.dmesg_restrict 1 1
