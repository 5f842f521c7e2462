#!/usr/bin/env bash
# usage: mistakes.sh BUILD_DIR COMPILER
#
# Compiles the wrong forms in CompiledMistakes.cpp with the command that the tree BUILD_DIR has for its correct ones, and
# expects of each line that is marked the diagnosis of its mark:
#
#     // compiler: PATTERN      of every compiler
#     // clang: PATTERN         of clang and of clang-tidy; g++ says nothing of virtual functions that are [[nodiscard]]
#     // clang-tidy: PATTERN    of clang-tidy, with the configuration that "tavctl new-page" writes
#
# COMPILER is the tree's, as CMake calls it. Builds PackedMistakes.cpp with clang's check of alignment, and expects of
# each of its cases a report at its line. Then holds the table in the guide for authors against the lists.
set -euo pipefail

build_dir=$1 compiler=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$here/../..
list=$here/CompiledMistakes.cpp

for tool in clang++ clang-tidy; do
    command -v "$tool" >/dev/null || { echo "mistakes: $tool is not installed, and must look at some of them" >&2; exit 1; }
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# expect KINDS FILE: the output in FILE has a diagnosis for each line that is marked with one of KINDS, "a|b".
expect() {
    local number mark pattern count=0
    while IFS=: read -r number mark; do
        pattern=${mark#*// }
        pattern=${pattern#*: }
        count=$((count + 1))
        # The place and what is said may be some lines apart, where a template is at fault.
        if ! grep -C 3 -F "CompiledMistakes.cpp:$number:" "$2" | grep -qE "(error|warning): .*$pattern"; then
            echo "mistakes: line $number: no \"$pattern\" ($1)" >&2
            failed=1
        fi
    done < <(grep -nE "// ($1): " "$list")
    echo "mistakes: $count caught ($1)"
    [[ $count -gt 0 ]] || failed=1
}

command=$(grep -F 'TavCompiledMistakes.dir' "$build_dir/compile_commands.json" | sed -n 's/^ *"command": "\(.*\)",$/\1/p')
command=${command//\\\"/\"}
command=${command//-Werror/}
cd "$build_dir"
(eval "$command -o /dev/null -fsyntax-only -DTAV_ACCEPTED_MISTAKES -DTAV_REFUSED_MISTAKES" || true) &>"$work/compiler.txt" &
# Without the checks that have nothing to say here, which take the most time.
clang-tidy --quiet -p "$build_dir" --config-file="$root/tools/tavctl/newpage/clang-tidy.in" \
    --checks='-bugprone-*,bugprone-unused-return-value,-performance-*,-concurrency-*' \
    --extra-arg=-DTAV_ACCEPTED_MISTAKES --extra-arg=-Wno-error "$list" >"$work/tidy.txt" 2>/dev/null || true
wait

if [[ $compiler == Clang ]]; then
    expect 'compiler|clang' "$work/compiler.txt"
else
    expect compiler "$work/compiler.txt"
fi
expect 'clang-tidy|clang' "$work/tidy.txt"

# Rows packed to one byte: with the list of what cannot be otherwise, each report is the author's own.
include=$work/include/tavsec
mkdir -p "$include"
cp "$root"/interfaces/*.h "$root"/kit/*.h "$include"
packed=$here/PackedMistakes.cpp
if ! eval clang++ -std=c++17 -g -fPIC -Wall -Wextra -Werror "'-I$include'" "$(grep -oE -- '-isystem [^ ]+' <<<"$command" | tr '\n' ' ')" \
    -fsanitize=alignment -fno-sanitize-recover=alignment "'-fsanitize-ignorelist=$root/share/sanitizers/packed-rows.ignorelist'" \
    "'$packed'" -o "'$work/packed'" -lQt5Core; then
    failed=1
else
    "$work/packed" || { echo "mistakes: the correct forms with packed rows are reported" >&2; failed=1; }
    while IFS=: read -r number mark; do
        case=${mark##*case }
        "$work/packed" "${case%%:*}" &>"$work/packed.txt" || true
        if ! grep -qE "PackedMistakes.cpp:$number:[0-9]+: runtime error: .*misaligned" "$work/packed.txt"; then
            echo "mistakes: PackedMistakes.cpp, line $number: no report, but: $(<"$work/packed.txt")" >&2
            failed=1
        fi
    done < <(grep -nE '// reported: case ' "$packed")
fi

# The table: what the lists say, in their order.
{
    echo '| mistake | seen by | instead |'
    echo '|---|---|---|'
    sed -n 's,^//! \(.*\)$,| \1 |,p' "$list" "$here/RunningMistakesTest.cpp" "$packed" "$root/tests/kit/TestClientTest.cpp"
} >"$work/table.txt"
awk '/^\| mistake /, /^$/' "$root/docs/page-plugin-guide.md" | sed '/^$/d' >"$work/guide.txt"
if ! diff -u "$work/guide.txt" "$work/table.txt"; then
    echo "mistakes: the table in docs/page-plugin-guide.md is not that of the lists, which is behind the +" >&2
    failed=1
fi
exit "$failed"
