#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# The ufw service also "runs" when the firewall is switched off in its configuration.
value=$(active_service firewalld nftables iptables) || exit
if [ -z "$value" ] && grep -qs '^ENABLED=yes' /etc/ufw/ufw.conf; then
    value=$(active_service ufw)
fi
show "${value:-未启用}"
[ -n "$value" ]
