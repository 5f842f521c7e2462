#!/usr/bin/env bash
# usage: page-tools.sh SOURCE_DIR BUILD_DIR LIBRARY_DIR
#
# Runs the guide's commands with clang-tidy and the sanitizers, on the example and on a new project, against the
# installation alone.
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=installation.sh
. "$here/installation.sh"

install_tree common plugin dev tavctl
export PATH=$prefix/bin:$PATH CMAKE_PREFIX_PATH=$prefix
mkdir "$work/scratch"
cd "$work/scratch"
CMAKE_BUILD_PARALLEL_LEVEL=$(nproc) "$source_dir/tests/integration/run-guide.sh" \
    "$prefix/share/doc/tav-data-plugin-dev/page-plugin-guide.md" '2|11|12|14' "$prefix/share" ||
    fail "the guide's commands do not work"
