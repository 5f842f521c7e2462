#!/usr/bin/env bash
# usage: example-page-plugin.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]
#
# Proves that a page author needs nothing but the installation: installs the built tree BUILD_DIR to a temporary prefix,
# builds the example that is installed there against that alone, and runs its test. Then the page by way of pkg-config,
# and with the CMakeLists.txt that the guide prints. What the guide quotes must stand in the example. LIBRARY_DIR is the
# tree's CMAKE_INSTALL_LIBDIR; the further arguments configure the example.
set -euo pipefail

source_dir=$1 build_dir=$2 library_dir=$3
shift 3

fail() {
    echo "example-page-plugin: $*" >&2
    exit 1
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

for component in common plugin dev; do
    cmake --install "$build_dir" --prefix "$prefix" --component "$component"
done
doc=$prefix/share/doc/tav-data-plugin-dev
cp -r "$doc/examples/page-plugin" "$work/source"
[[ -z $(find "$doc" -type f -perm /111) ]] || fail "documentation is installed as a program"

# quotes GUIDE: the code blocks that name a file in a comment on their first line, each ended by a NUL.
quotes() {
    awk '/^```/ { if (open) printf "%c", 0; open = /^```(cpp|cmake|sh)$/; next } open' "$1"
}
count=0
while IFS= read -r -d '' block; do
    name=${block%%$'\n'*}
    name=${name#[#/]* }
    code=${block#*$'\n'}
    [[ -f $work/source/$name ]] || fail "the guide has code that is of no file of the example: $name"
    [[ $'\n'$(<"$work/source/$name")$'\n' == *$'\n'"$code"* ]] || fail "the guide's lines do not stand in $name: $code"
    if [[ $name == CMakeLists.txt ]]; then
        mkdir "$work/minimal"
        printf '%s' "$code" >"$work/minimal/CMakeLists.txt"
    fi
    count=$((count + 1))
done < <(quotes "$doc/page-plugin-guide.md")
[[ $count -ge 15 ]] || fail "the guide quotes the example $count times only"

cmake -S "$work/source" -B "$work/build" "$@" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_PREFIX_PATH="$prefix"
! grep -qF -e "$source_dir" -e "$build_dir" "$work/build/compile_commands.json" ||
    fail "the example is compiled with headers that are not those of the package"
cmake --build "$work/build" --parallel "$(nproc)"
ctest --test-dir "$work/build" --output-on-failure --no-tests=error

mkdir "$work/unknown"
printf '%s\n' 'cmake_minimum_required(VERSION 3.22)' 'project(Page LANGUAGES CXX)' \
    'find_package(TavDataPlugin REQUIRED COMPONENTS Kitt)' >"$work/unknown/CMakeLists.txt"
! cmake -S "$work/unknown" -B "$work/unknown/build" "$@" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null 2>"$work/unknown.txt" ||
    fail "a component that there is not is found"
grep -q Kitt "$work/unknown.txt" || fail "the component that there is not is not named: $(<"$work/unknown.txt")"

plugin=$work/build/libNetControlPagePlugin.so
found=$(env -u LD_LIBRARY_PATH ldd "$plugin" | awk '$1 == "libTavCommon.so.1" { print $3 }')
[[ $found == "$prefix/$library_dir/libTavCommon.so.1" ]] || fail "the page takes libTavCommon.so.1 from ${found:-nowhere}"

# show NAME PLUGIN: loads it as a client does, and has it draw its page.
show() {
    QT_QPA_PLATFORM=offscreen "$work/build/page-preview" "$2" "$work/$1.png" || fail "the page $1 does not run"
    [[ -s $work/$1.png ]] || fail "the preview of the page $1 has drawn nothing"
    grep -qF '(index) < (current_size_)' "$2" || fail "the page $1 does not keep the bounds checks of the messages"
}
show cmake "$plugin"

cp "$work"/source/*.cpp "$work"/source/*.h "$work/minimal/"
cmake -S "$work/minimal" -B "$work/minimal/build" "$@" -DCMAKE_PREFIX_PATH="$prefix"
cmake --build "$work/minimal/build" --parallel "$(nproc)"
show minimal "$work/minimal/build/libNetControlPagePlugin.so"

if command -v pkg-config >/dev/null; then
    export PKG_CONFIG_PATH=$prefix/$library_dir/pkgconfig
    (cd "$work/source" && sh build-without-cmake.sh)
    show pkg-config "$work/source/libNetControlPagePlugin.so"
    [[ -f $(pkg-config --variable=plugindir tav-data-plugin)/libTavDataPlugin.so ]] ||
        fail "pkg-config does not say where the plugin is"
fi
