#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(sshd_value maxauthtries) || exit
show "$value"
between "${value:-6}" 1 4
