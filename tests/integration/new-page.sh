#!/usr/bin/env bash
# usage: new-page.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]
#
# Proves that a page stands at once: installs the built tree BUILD_DIR to a temporary prefix, has tavctl write a project,
# builds it against the installation alone, runs its test and shows it in the development client's window.
# LIBRARY_DIR is the tree's CMAKE_INSTALL_LIBDIR; the further arguments configure the project.
set -euo pipefail

source_dir=$1 build_dir=$2
shift 3

fail() {
    echo "new-page: $*" >&2
    exit 1
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
for component in common plugin dev; do
    cmake --install "$build_dir" --prefix "$prefix" --component "$component" >/dev/null
done
cd "$work"

# shown NAME [OPTION...]: pictures of all pages go into the directory NAME.
shown() {
    local directory=$1
    shift
    QT_QPA_PLATFORM=offscreen "$build_dir/bin/tavdesk" --root "$source_dir/share/demo" --pictures "$directory" "$@"
}

# A page that shows a message, and one that shows records.
"$build_dir/bin/tavctl" new-page Devices --page SubFunc_serverResourceInfo --manager ITavNetControlMgr \
    --root "$source_dir/share/demo" >steps.txt
grep -q 'cmake -S . -B build' steps.txt || fail "the next steps are not told: $(<steps.txt)"
"$build_dir/bin/tavctl" new-page Log --page SubFunc_LogAudit --root "$source_dir/share/demo" >/dev/null
for name in Devices Log; do
    cmake -S "$name" -B "$name/build" "$@" -DCMAKE_PREFIX_PATH="$prefix"
    cmake --build "$name/build" --parallel "$(nproc)"
    ctest --test-dir "$name/build" --output-on-failure --no-tests=error
done

shown without
shown with --page Devices/build/libDevicesPlugin.so
pages=(with/*serverResourceInfo*)
page=${pages[0]#with/}
[[ -s with/$page && -s without/$page ]] || fail "there is no picture of the page: $(ls with without)"
! cmp -s "without/$page" "with/$page" || fail "the window does not show the plugin's page"
