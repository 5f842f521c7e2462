#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=
if [ -r /sys/fs/selinux/enforce ]; then
    read -r enforce </sys/fs/selinux/enforce
    value='SELinux permissive'
    [ "$enforce" != 1 ] || value='SELinux enforcing'
elif [ -r /sys/module/apparmor/parameters/enabled ]; then
    read -r enabled </sys/module/apparmor/parameters/enabled
    [ "$enabled" != Y ] || value='AppArmor enabled'
fi
show "${value:-未启用}"
case $value in
    'SELinux enforcing' | 'AppArmor enabled') ;;
    *) exit 1 ;;
esac
