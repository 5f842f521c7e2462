#!/usr/bin/env bash
# usage: example-page-plugin.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]
#
# Proves that a page author needs nothing but the installation: installs the built tree BUILD_DIR to a temporary prefix,
# builds examples/page-plugin of SOURCE_DIR against that alone, and runs its test. Then the same headers and library by
# way of pkg-config. LIBRARY_DIR is the tree's CMAKE_INSTALL_LIBDIR; the further arguments configure the example.
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
cp -r "$source_dir/examples/page-plugin" "$work/source"
cmake -S "$work/source" -B "$work/build" "$@" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_PREFIX_PATH="$prefix"
! grep -qF -e "$source_dir" -e "$build_dir" "$work/build/compile_commands.json" ||
    fail "the example is compiled with headers that are not those of the package"
cmake --build "$work/build" --parallel "$(nproc)"
ctest --test-dir "$work/build" --output-on-failure --no-tests=error

plugin=$work/build/libNetControlPagePlugin.so
found=$(env -u LD_LIBRARY_PATH ldd "$plugin" | awk '$1 == "libTavCommon.so.1" { print $3 }')
[[ $found == "$prefix/$library_dir/libTavCommon.so.1" ]] || fail "the page takes libTavCommon.so.1 from ${found:-nowhere}"
QT_QPA_PLATFORM=offscreen "$work/build/page-preview" "$plugin" "$work/page.png"
[[ -s $work/page.png ]] || fail "the preview has drawn nothing"

if command -v pkg-config >/dev/null; then
    cat >"$work/page.cpp" <<'CODE'
#include "ITavNetControlMgr.h"
#include "TavObjectMgr.h"
#ifdef NDEBUG
#error "the package does not keep the bounds checks of the messages"
#endif
int main()
{
    return tavObject<ITavNetControlMgr>("ITavNetControlMgr") ? 1 : 0;
}
CODE
    export PKG_CONFIG_PATH=$prefix/$library_dir/pkgconfig
    # shellcheck disable=SC2046  # several words are meant
    g++ -std=c++17 -fPIC -O2 -DNDEBUG $(pkg-config --cflags tav-data-plugin) "$work/page.cpp" -o "$work/page" \
        $(pkg-config --libs tav-data-plugin) -Wl,-rpath,"$prefix/$library_dir"
    "$work/page" || fail "a program built with pkg-config does not run"
    [[ -f $(pkg-config --variable=plugindir tav-data-plugin)/libTavDataPlugin.so ]] ||
        fail "pkg-config does not say where the plugin is"
fi
