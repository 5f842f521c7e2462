#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

check_permissions /etc/shadow 0640
