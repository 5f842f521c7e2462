#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Both "all" and the interface must allow it, so 0 here closes every interface.
check_sysctl net.ipv4.conf.all.accept_source_route 0 0
