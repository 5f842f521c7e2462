#!/usr/bin/env bash
# usage: run-guide.sh GUIDE CHAPTERS [SHARE]
#
# Runs the commands that the guide GUIDE prints, its blocks marked "bash", as they stand there, one after the other in the
# working directory. CHAPTERS, such as "2|10", says of which. SHARE is where the installation keeps what the guide looks
# for in /usr/share; blocks that take root's rights run without it only, on a system that is there for that.
set -euo pipefail

guide=$1 chapters=$2 share=${3:-}

awk -v chapters="^($chapters)$" -v isOwnSystem="${share:+0}" '
    /^## / { chapter = $2; sub(/\.$/, "", chapter) }
    /^```bash$/ && chapter ~ chapters { inside = 1; block = ""; next }
    inside && /^```$/ {
        inside = 0
        if (isOwnSystem == "0" && block ~ /sudo /) {
            print "echo guide: left out, since it takes the rights of root: chapter " chapter
        } else {
            print "echo guide: chapter " chapter "\n" block
        }
    }
    inside { block = block $0 "\n" }
' "$guide" >guide-commands.sh
[[ -s guide-commands.sh ]] || { echo "run-guide: $guide has no commands in $chapters" >&2; exit 1; }
if [[ -n $share ]]; then
    sed -i "s#/usr/share/#$share/#g" guide-commands.sh
fi
export QT_QPA_PLATFORM=offscreen EDITOR=true
trap 'echo "run-guide: the guide'\''s commands have failed" >&2' ERR
# The guide is for users; root has no sudo and needs none.
bash -e -c 'if [[ $(id -u) -eq 0 ]]; then sudo() { "$@"; }; fi; . ./guide-commands.sh'
