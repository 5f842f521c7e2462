#!/usr/bin/env bash
# usage: page-guide.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]
#
# Proves that a page author needs nothing but the installation and the guide: runs the guide's commands, which build the
# example that is installed there, test it and take a picture of it. Then the page by way of pkg-config, and with the
# CMakeLists.txt that the guide prints. What the guide quotes must stand in the example.
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=installation.sh
. "$here/installation.sh"

install_tree common plugin dev tavctl tavdesk
export PATH=$prefix/bin:$PATH CMAKE_PREFIX_PATH=$prefix
doc=$prefix/share/doc/tav-data-plugin-dev
guide=$doc/page-plugin-guide.md
example=$doc/examples/page-plugin
[[ -z $(find "$doc" -type f -perm /111) ]] || fail "documentation is installed as a program"

# Every page or picture that an installed one links to is installed, too.
links=0
for text in "$doc"/*.md; do
    while IFS= read -r target; do
        [[ -e $doc/${target%%#*} ]] || fail "$(basename "$text") links to $target, which is not installed"
        links=$((links + 1))
    done < <(grep -oE '\]\([^)#: ]+(#[^)]*)?\)' "$text" | sed 's/^](//; s/)$//')
done
[[ $links -ge 5 ]] || fail "the installed pages have $links links only"

# quotes GUIDE: the code blocks that name a file in a comment on their first line, each ended by a NUL.
quotes() {
    awk '/^```/ { if (open) printf "%c", 0; open = /^```(cpp|cmake|sh)$/; next } open' "$1"
}
count=0
while IFS= read -r -d '' block; do
    name=${block%%$'\n'*}
    name=${name#[#/]* }
    code=${block#*$'\n'}
    [[ -f $example/$name ]] || fail "the guide has code that is of no file of the example: $name"
    [[ $'\n'$(<"$example/$name")$'\n' == *$'\n'"$code"* ]] || fail "the guide's lines do not stand in $name: $code"
    if [[ $name == CMakeLists.txt ]]; then
        mkdir "$work/minimal"
        printf '%s' "$code" >"$work/minimal/CMakeLists.txt"
    fi
    count=$((count + 1))
done < <(quotes "$guide")
[[ $count -ge 15 ]] || fail "the guide quotes the example $count times only"

mkdir "$work/scratch"
(cd "$work/scratch" && LD_LIBRARY_PATH=$prefix/$library_dir CMAKE_EXPORT_COMPILE_COMMANDS=ON CMAKE_BUILD_PARALLEL_LEVEL=$(nproc) \
    "$source_dir/tests/integration/run-guide.sh" "$guide" '1|2|10|13|16' "$prefix/share") ||
    fail "the guide's commands do not work"
page=$work/scratch/my-page
[[ -s $page/page.png ]] || fail "the guide's commands have taken no picture"
packages=("$work/scratch/DiskUsage/build/"*.deb)
[[ -s ${packages[0]} ]] || fail "the guide's commands have made no package of a new project"
pictures=("$work/scratch/pictures/"*.png)
[[ ${#pictures[@]} -ge 14 ]] || fail "the guide's commands have taken no pictures in the window"
! grep -qF -e "$source_dir" -e "$build_dir" "$page/build/compile_commands.json" ||
    fail "the example is compiled with headers that are not those of the package"
plugin=$page/build/libNetControlPagePlugin.so
found=$(env -u LD_LIBRARY_PATH ldd "$plugin" | awk '$1 == "libTavCommon.so.1" { print $3 }')
[[ $found == "$prefix/$library_dir/libTavCommon.so.1" ]] || fail "the page takes libTavCommon.so.1 from ${found:-nowhere}"

# keeps_checks PLUGIN: the messages' bounds checks are compiled into it.
keeps_checks() {
    grep -qF '(index) < (current_size_)' "$1" || fail "$1 does not keep the bounds checks of the messages"
}
keeps_checks "$plugin"

# show PLUGIN: loads it as a client does, and has it draw its page.
show() {
    rm -f "$work/page.png"
    QT_QPA_PLATFORM=offscreen "$page/build/page-preview" "$1" "$work/page.png" || fail "$1 does not run"
    [[ -s $work/page.png ]] || fail "the preview of $1 has drawn nothing"
    keeps_checks "$1"
}

cp "$example"/*.cpp "$example"/*.h "$work/minimal/"
cmake -S "$work/minimal" -B "$work/minimal/build" "$@"
cmake --build "$work/minimal/build" --parallel "$(nproc)"
show "$work/minimal/build/libNetControlPagePlugin.so"

if command -v pkg-config >/dev/null; then
    export PKG_CONFIG_PATH=$prefix/$library_dir/pkgconfig
    (cd "$page" && sh build-without-cmake.sh)
    show "$page/libNetControlPagePlugin.so"
    [[ -f $(pkg-config --variable=plugindir tav-data-plugin)/libTavDataPlugin.so ]] ||
        fail "pkg-config does not say where the plugin is"
fi

mkdir "$work/unknown"
printf '%s\n' 'cmake_minimum_required(VERSION 3.22)' 'project(Page LANGUAGES CXX)' \
    'find_package(TavDataPlugin REQUIRED COMPONENTS Kitt)' >"$work/unknown/CMakeLists.txt"
! cmake -S "$work/unknown" -B "$work/unknown/build" "$@" >/dev/null 2>"$work/unknown.txt" ||
    fail "a component that there is not is found"
grep -q Kitt "$work/unknown.txt" || fail "the component that there is not is not named: $(<"$work/unknown.txt")"
