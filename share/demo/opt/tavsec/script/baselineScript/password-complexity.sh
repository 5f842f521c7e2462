#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

# A class is demanded by number (minclass) or by name: a negative credit asks for at least one such character.
value=$(pam_option pam_pwquality.so minclass /etc/security/pwquality.conf) || exit
named=0
for credit in dcredit ucredit lcredit ocredit; do
    case $(pam_option pam_pwquality.so $credit /etc/security/pwquality.conf) in
        -[1-9]*) named=$((named + 1)) ;;
    esac
done
if [ "$named" -gt 0 ] && ! between "$value" "$named" 4; then
    value=$named
fi
show "$value"
between "$value" 3 4
