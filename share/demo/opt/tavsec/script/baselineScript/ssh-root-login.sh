#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Unset means prohibit-password: root may still log in with a key.
value=$(sshd_value permitrootlogin) || exit
show "$value"
[ "$value" = no ]
