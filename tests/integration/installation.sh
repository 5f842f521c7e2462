#!/usr/bin/env bash
# What the tests here begin with, which build against an installation and not against these sources; sourced with their
# arguments: SOURCE_DIR BUILD_DIR LIBRARY_DIR [CMAKE_ARGUMENT...]. LIBRARY_DIR is the tree's CMAKE_INSTALL_LIBDIR; the
# further arguments, which remain, configure what the test builds as the tree was configured.
set -euo pipefail

# shellcheck disable=SC2034  # the tests use them
source_dir=$1 build_dir=$2 library_dir=$3
shift 3

fail() {
    echo "$(basename "$0" .sh): $*" >&2
    exit 1
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

# install_tree COMPONENT...: installs these of the built tree to the prefix.
install_tree() {
    local component
    for component; do
        cmake --install "$build_dir" --prefix "$prefix" --component "$component" >/dev/null
    done
}
