#!/usr/bin/env bash
# usage: same-packages.sh DIRECTORY
#
# Builds all packages of HEAD twice, from two clones in DIRECTORY whose paths have different lengths, with nothing taken
# over from one to the other, and compares them bit for bit.
set -euo pipefail

[[ $# -eq 1 ]] || { sed -n '2,5p' "$0" | sed 's/^# \{0,1\}//'; exit 2; }
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
export CCACHE_DISABLE=1 # a compiler's cache would give the first one's objects to the second
unset CMAKE_CXX_COMPILER_LAUNCHER
clones=("$1/one/source" "$1/another/and-deeper/source")
for clone in "${clones[@]}"; do
    rm -rf "$clone" "${clone%/source}"/*.deb
    git clone -q "$source" "$clone"
    (cd "$clone" && dpkg-buildpackage -us -uc -b) || { echo "same-packages: $clone: not built" >&2; exit 1; }
done

status=0
mapfile -t names < <(sed -n 's/^Package: //p' "$source/debian/control")
for package in "${names[@]}"; do
    compgen -G "${clones[0]%/source}/${package}_*.deb" >/dev/null ||
        { echo "same-packages: there is no $package" >&2; exit 1; }
done
for package in "${clones[0]%/source}"/*.deb; do
    package=${package##*/}
    if cmp -s "${clones[0]%/source}/$package" "${clones[1]%/source}/$package"; then
        echo "same-packages: $package: identical"
    else
        echo "same-packages: $package: differs" >&2
        status=1
    fi
done
exit "$status"
