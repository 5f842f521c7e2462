#!/bin/sh
# shellcheck source=lib.sh disable=SC1091
. "$(dirname "$0")/lib.sh"

need_file /proc/self/mounts
value=$(awk '$2 == "/tmp" { options = $4 } END { print options }' /proc/self/mounts)
show "${value:-未单独挂载}"
for option in nodev nosuid noexec; do
    case ,$value, in
        *,$option,*) ;;
        *) exit 1 ;;
    esac
done
