#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

value=$(login_def ENCRYPT_METHOD) || exit
show "$value"
case $value in
    SHA512 | YESCRYPT) ;;
    *) exit 1 ;;
esac
