#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(sshd_value permitemptypasswords) || exit
show "$value"
[ "${value:-no}" = no ]
