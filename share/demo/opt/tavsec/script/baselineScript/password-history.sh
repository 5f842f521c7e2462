#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Two modules can keep the history; pam_pwhistory keeps 10 passwords unless told otherwise.
value=$(pam_option pam_pwhistory.so remember /etc/security/pwhistory.conf) || exit
default=10
if [ "$value" = 未启用 ]; then
    value=$(pam_option pam_unix.so remember) || exit
    default=0
fi
show "$value"
between "${value:-$default}" 5 400
