#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# The module's built-in minimum is 8.
value=$(pam_option pam_pwquality.so minlen /etc/security/pwquality.conf) || exit
show "$value"
between "${value:-8}" 12 999
