#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(login_def UMASK) || exit
show "$value"
case $value in
    '' | *[!0-7]* | ?????*) exit 1 ;;
esac
[ $((027 & ~0$value)) -eq 0 ]
