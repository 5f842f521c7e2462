#!/usr/bin/env bash
# usage: external-common.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]
#
# Proves that the plugin builds against an installed TavCommon package: installs common/ of the built tree BUILD_DIR to
# a temporary prefix, builds the plugin of SOURCE_DIR against that alone, and looks where it finds libTavCommon.
# shellcheck source-path=SCRIPTDIR source=installation.sh
. "$(dirname "${BASH_SOURCE[0]}")/installation.sh"
plugin=$work/build/$library_dir/tavsec/plugins/libTavDataPlugin.so

cmake --install "$build_dir/common" --prefix "$prefix"
cmake -S "$source_dir" -B "$work/build" "$@" -DCMAKE_INSTALL_LIBDIR="$library_dir" -DCMAKE_PREFIX_PATH="$prefix" \
    -DTAV_COMMON=external -DTAV_BUILD_TOOLS=OFF -DBUILD_TESTING=OFF

[[ ! -e $work/build/common ]] || fail "the second build has built common/ itself"
! grep -qF -e "$source_dir/common" -e "$build_dir" "$work/build/compile_commands.json" ||
    fail "the plugin is compiled with headers that are not those of the package"

cmake --build "$work/build" --parallel "$(nproc)"

found=$(env -u LD_LIBRARY_PATH ldd "$plugin" | awk '$1 == "libTavCommon.so.1" { print $3 }')
[[ -n $found ]] || fail "the plugin does not need libTavCommon.so.1"
[[ $found == "$prefix/$library_dir/libTavCommon.so.1" ]] || fail "the plugin takes libTavCommon.so.1 from $found"
