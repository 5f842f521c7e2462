#!/usr/bin/env bash
# Compares the interfaces as they are built now with those that shipped: every type that a page can see, down to the
# places of virtual operations and the layout of records.
#
#   compare.sh PROBE_LIBRARY BASELINE            exit 0: the same; anything else: different, or not comparable
#   compare.sh --update PROBE_LIBRARY BASELINE   makes what is built now the baseline
set -euo pipefail

update=
[[ ${1:-} == --update ]] && { update=1; shift; }
[[ $# -eq 2 ]] || { sed -n '2,7p' "$0" | sed 's/^# \{0,1\}//'; exit 2; }
library=$1 baseline=$2

for tool in abidw abidiff xz; do
    command -v "$tool" >/dev/null || { echo "compare.sh: $tool is missing; install abigail-tools and xz-utils" >&2; exit 2; }
done
[[ -f $library ]] || { echo "compare.sh: $library: there is no such file; build it first" >&2; exit 2; }

if [[ -n $update ]]; then
    abidw --no-comp-dir-path --no-show-locs --no-elf-needed --no-corpus-path "$library" | xz -9 >"$baseline"
    echo "compare.sh: wrote $baseline"
    exit 0
fi
[[ -f $baseline ]] || { echo "compare.sh: $baseline: there is no baseline; make one with --update" >&2; exit 2; }

shipped=$(mktemp --suffix=.abi)
trap 'rm -f "$shipped"' EXIT
xz -dc "$baseline" >"$shipped"
status=0
abidiff "$shipped" "$library" || status=$?
[[ $status -eq 0 ]] || echo "compare.sh: compiled pages would break: the interfaces differ from $baseline" >&2
exit "$status"
