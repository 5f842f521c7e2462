#!/usr/bin/env bash
# usage: new-page.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]
#
# Proves that a page stands at once: projects that tavctl writes are built against the installation alone, tested, and
# shown by the window.
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=installation.sh
. "$here/installation.sh"

install_tree common plugin dev tavctl tavdesk
export PATH=$prefix/bin:$PATH
demo=$prefix/share/tavsec/demo
to_picture=$(realpath "$here/page-to-picture.sh")
cd "$work"

# Pages that show a message, one record, records, and rows.
"$to_picture" Devices SubFunc_OneClickReinforcement "$demo" "$@" -DCMAKE_PREFIX_PATH="$prefix" | tee steps.txt
grep -q 'cmake -S . -B build' steps.txt || fail "the next steps are not told"
"$to_picture" Host SubFunc_serverResourceInfo "$demo" "$@" -DCMAKE_PREFIX_PATH="$prefix"
"$to_picture" Users SubFunc_PrincipalSettings "$demo" "$@" -DCMAKE_PREFIX_PATH="$prefix"
"$to_picture" Files SubFunc_ObjectAdd "$demo" "$@" -DCMAKE_PREFIX_PATH="$prefix"

# Its own rules for clang-tidy find nothing in it.
for name in Devices Host; do
    cmake -S "$name" -B "$name/build" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
    (cd "$name" && clang-tidy --quiet --warnings-as-errors='*' -p build ./*.cpp) || fail "clang-tidy finds fault with $name"
done

# The package puts the page where the client looks for plugins. The library is not a package's here.
(cd Devices/build && LD_LIBRARY_PATH=$prefix/$library_dir cpack >/dev/null)
dpkg-deb -c Devices/build/tav-page-devices_*.deb | grep -q ' ./opt/tavsec/plugins/libDevicesPlugin.so$' ||
    fail "the page's package puts it elsewhere: $(dpkg-deb -c Devices/build/tav-page-devices_*.deb)"

QT_QPA_PLATFORM=offscreen tavdesk --root "$demo" --pictures without
for picture in Devices/pictures/*OneClickReinforcement* Host/pictures/*serverResourceInfo* \
    Users/pictures/*PrincipalSettings* Files/pictures/*ObjectAdd*; do
    page=without/$(basename "$picture")
    [[ -s $page ]] || fail "there is no picture of the page without its plugin: $page"
    ! cmp -s "$page" "$picture" || fail "the window does not show the plugin's page: $picture"
done
