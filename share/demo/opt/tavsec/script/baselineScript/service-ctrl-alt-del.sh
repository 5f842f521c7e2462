#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

[ -d /etc/systemd/system ] || cannot "系统未由 systemd 管理"
if [ "$(readlink -f /etc/systemd/system/ctrl-alt-del.target)" = /dev/null ]; then
    show 已屏蔽
else
    show 未屏蔽
    exit 1
fi
