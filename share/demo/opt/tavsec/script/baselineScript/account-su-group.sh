#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# "sufficient ... trust" would be the opposite: members need no password, everybody else may still try.
need_file /etc/pam.d/su
if awk '$1 == "auth" && $2 ~ /^requi(red|site)$/ && /pam_wheel\.so/ { found = 1 } END { exit !found }' /etc/pam.d/su
then
    show 已限制
else
    show 未限制
    exit 1
fi
