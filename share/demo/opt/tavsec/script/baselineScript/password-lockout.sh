#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# The module locks after 3 failures unless told otherwise; 0 would switch it off.
value=$(pam_option pam_faillock.so deny /etc/security/faillock.conf) || exit
show "$value"
between "${value:-3}" 1 5
