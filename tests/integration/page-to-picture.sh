#!/usr/bin/env bash
# usage: page-to-picture.sh NAME PAGE ROOT [CMAKE_ARGUMENT...]
#
# The way of a page from nothing to a picture of it, as its author goes it, in the working directory: "tavctl new-page"
# writes the project NAME for PAGE of the installation ROOT, which is built, tested, and shown by the development client's
# window; its pictures go to NAME/pictures. Takes tavctl and tavdesk from PATH, and says how long it took. The further
# arguments configure the project.
set -euo pipefail

name=$1 page=$2 root=$3
shift 3

tavctl new-page "$name" --page "$page" --root "$root"
cmake -S "$name" -B "$name/build" "$@" >"$name.txt"
cmake --build "$name/build" --parallel "$(nproc)" >>"$name.txt" || { cat "$name.txt"; exit 1; }
ctest --test-dir "$name/build" --output-on-failure --no-tests=error >>"$name.txt" || { cat "$name.txt"; exit 1; }
QT_QPA_PLATFORM=offscreen tavdesk --root "$root" --page "$name/build/lib${name}Plugin.so" --pictures "$name/pictures"
pictures=("$name/pictures/"*"${page#SubFunc_}"*.png)
[[ -s ${pictures[0]} ]] || { echo "page-to-picture: no picture of $page: $(ls "$name/pictures")" >&2; exit 1; }

times >"$name.txt" # of what ran on its way, in the second line
echo "page-to-picture: $name, from tavctl new-page to ${pictures[0]}: $SECONDS s; of processors," \
    "user and system: $(tail -n 1 "$name.txt")"
