#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(login_def PASS_MAX_DAYS) || exit
show "$value"
between "$value" 1 90
