#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Only the local file is read: a directory service may be slow, and must not hand out this id anyway.
need_file /etc/passwd
value=$(awk -F: '$3 == 0 { print $1 }' /etc/passwd | one_line)
show "$value"
[ "$value" = root ]
