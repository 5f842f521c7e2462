#!/usr/bin/env bash
# Merges the profiles of an instrumented test run and reports what the tests reached.
#
#   report.sh BUILD_DIRECTORY
#
# Every line and branch of plugin/ and managers/ must be reached, and 95 % of those of common/. What is not reached is
# listed. Exit: 0 when the goals are met.
set -euo pipefail
[[ $# -eq 1 ]] || { sed -n '2,7p' "$0" | sed 's/^# \{0,1\}//'; exit 2; }
build=$(cd "$1" && pwd)
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

# Inline functions that a unit includes and never emits have no profile, of which llvm-cov warns on every call.
exec 2> >(grep -v 'functions have mismatched data$' >&2)

llvm-profdata merge -sparse "$build"/profiles/*.profraw -o "$build/coverage.profdata"
# The tests bring in the templates and inline functions of common/, which stand in whoever uses them.
objects=("$(find "$build" -name libTavDataPlugin.so)")
for object in "$(find "$build" -name libTavCommon.so)" "$build"/bin/{Signal,Subscription,ObjectMgr}Test; do
    objects+=(-object "$object")
done

# area NAME GOAL: prints the totals of one folder and whether they meet the goal; lists what was not reached.
missed=0
area() {
    local name=$1 goal=$2 totals
    totals=$(llvm-cov export -summary-only -instr-profile "$build/coverage.profdata" "${objects[@]}" "$source/$name" |
        python3 -c '
import json, sys
totals = json.load(sys.stdin)["data"][0]["totals"]
for kind in ("lines", "branches"):
    covered, count = totals[kind]["covered"], totals[kind]["count"]
    print(kind, covered, count, f"{100 * covered / max(count, 1):.2f}")')
    while read -r kind covered count percent; do
        printf '%-10s %-9s %5d of %5d  %6s %%  (goal %d %%)\n' "$name" "$kind" "$covered" "$count" "$percent" "$goal"
        [[ $((covered * 100)) -ge $((count * goal)) ]] || missed=1
    done <<<"$totals"
    llvm-cov show -show-branches=count -instr-profile "$build/coverage.profdata" "${objects[@]}" "$source/$name" |
        python3 -c '
import re, sys
# A template has its lines and branches once for each instantiation: it is enough that one of them is reached.
path = sys.argv[1] # no name is printed where there is only one file
lines, branches, texts = {}, {}, {}
for line in sys.stdin:
    line = line.rstrip("\n")
    if line.startswith("/") and line.endswith(":"):
        path = line[:-1]
    source_line = re.match(r" *(\d+)\| *([\d.kM]*)\|(.*)", line)
    if source_line:
        place = (path, int(source_line[1]))
        texts[place] = source_line[3]
        if source_line[2]:
            lines[place] = lines.get(place, False) or source_line[2] != "0"
    branch = re.match(r".*Branch \((\d+):(\d+)\): \[True: (\S+), False: (\S+)\]", line)
    if branch:
        key = (path, int(branch[1]), int(branch[2]))
        before = branches.get(key, (False, False))
        branches[key] = (before[0] or branch[3] != "0", before[1] or branch[4] != "0")
for (path, number), reached in sorted(lines.items()):
    if not reached:
        print(f"    {path}:{number}: not reached:{texts[path, number]}")
for (path, number, column), reached in sorted(branches.items()):
    for outcome, happened in zip(("true", "false"), reached):
        if not happened:
            print(f"    {path}:{number}:{column}: never {outcome}:{texts[path, number]}")' "$source/$name" | sed "s|$source/||"
}

area plugin 100
area managers 100
area common 95
exit "$missed"
