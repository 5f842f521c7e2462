#!/usr/bin/env bash
# expect-race.sh CODE REPORT FUNCTION COMMAND...: runs the command and succeeds when a race checker has caught it: it has
# ended with the checker's own exit code, and a report that begins with the line REPORT names a function that matches
# the pattern FUNCTION. A crash, a hang, a missing checker or a race elsewhere is not that.
set -euo pipefail

code=$1 report=$2 function=$3
shift 3

status=0
output=$("$@" 2>&1) || status=$?
if [[ $status -ne $code ]]; then
    printf '%s\n' "$output"
    echo "expected: exit code $code of the race checker; got $status" >&2
    exit 1
fi
# The first stack of each report, which an empty line ends: where the race is, not where the threads were made.
stacks=$(awk -v report="$report" 'index($0, report) { on = 1 } /^(==[0-9]+== )?$/ { on = 0 } on' <<<"$output")
if ! grep -q -w -E "$function" <<<"$stacks"; then
    printf '%s\n' "$output"
    echo "expected: \"$report\" in $function" >&2
    exit 1
fi
