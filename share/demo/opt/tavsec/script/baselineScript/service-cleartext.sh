#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# Asked of the kernel, so it does not matter who started the server. TCP 514 is left out: log servers use it too.
need_file /proc/net/tcp
value=$(cat /proc/net/tcp /proc/net/tcp6 2>/dev/null | awk '
    BEGIN { name["0015"] = "FTP"; name["0017"] = "Telnet"; name["0200"] = "rexec"; name["0201"] = "rlogin" }
    $4 == "0A" { sub(/.*:/, "", $2); if ($2 in name) print name[$2] }' | sort -u | one_line)
show "${value:-未监听}"
[ -z "$value" ]
