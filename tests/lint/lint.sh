#!/usr/bin/env bash
# Everything that is checked without running the code. Any finding fails.
#
#   lint.sh BUILD_DIRECTORY     a Debug tree, configured and built, for its compile_commands.json
# shellcheck disable=SC2317  # the checks are functions, called by their names
set -euo pipefail
[[ $# -eq 1 ]] || { sed -n '2,4p' "$0" | sed 's/^# \{0,1\}//'; exit 2; }
build=$(cd "$1" && pwd)
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
mapfile -t units < <(git ls-files 'common/*.cpp' 'docs/*.cpp' 'kit/*.cpp' 'managers/*.cpp' 'plugin/*.cpp' 'tools/*.cpp')
folder_list=$(tests/lint/folder-units.py "$build" "$build/lint" "${units[@]}")
mapfile -t folders <<<"$folder_list"
mapfile -t scripts < <(git grep -lE '^#!.*\b(ba)?sh$' -- ':!*.md') # examples in texts are none
findings=0

# check NAME COMMAND...: runs one check and notes whether it found anything.
check() {
    local name=$1
    shift
    if "$@"; then
        echo "lint: $name: clean"
    else
        echo "lint: $name: findings" >&2
        findings=1
    fi
}

# Qt's macros and the generated messages are not ours to judge: only our own folders are.
ours="$PWD/(common|docs|interfaces|kit|managers|plugin|tools)/.*"

check clang-format clang-format --dry-run -Werror "${sources[@]}"
tidy() {
    printf '%s\n' "${folders[@]}" | xargs -P "$(nproc)" -n 1 \
        clang-tidy --quiet -p "$build/lint" --config-file=.clang-tidy --warnings-as-errors='*' --header-filter="$ours" 2>/dev/null
}

clazy() {
    local output
    output=$(printf '%s\n' "${folders[@]}" | xargs -P "$(nproc)" -n 1 \
        clazy-standalone -p "$build/lint" --checks=level1 --header-filter="$ours" --ignore-dirs="$build|/usr/" 2>&1)
    ! grep -E 'warning:|error:' <<<"$output"
}

# Inside GoogleTest these only note a failure that nobody reads: the test passes. The example's test is one of Qt Test.
qt_test_verdicts() {
    ! git grep -nE '\b(QVERIFY2?|QCOMPARE|QFAIL|QSKIP|QEXPECT_FAIL|QTRY_[A-Z0-9_]+)\b|FailureReportingMode::QtTest' -- \
        'tests/*.cpp' 'tests/*.h'
}

check clang-tidy tidy
check clazy clazy
check "verdicts of Qt Test" qt_test_verdicts
check codespell codespell --ignore-words-list chage,nam --skip 'build,.git,*.png,*.xz,corpus,*.json' .
check shellcheck shellcheck "${scripts[@]}"
check "mistakes of pages" ctest --test-dir "$build" --quiet --output-on-failure -L '^lint$'
exit "$findings"
