#!/usr/bin/env bash
# Brings the window's translations up to date with its sources; new texts come in as unfinished.
#
#   update.sh [DIRECTORY]     the directory with the .ts files, this one unless told
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
catalogues=$(cd "${1:-$here}" && pwd)
cd "$here/../.."
lupdate=(/usr/lib/qt5/bin/lupdate -silent -locations none -no-obsolete -source-language en)
texts=(tavdesk ../kit/plugin/TavPluginError.cpp ../kit/plugin/TavPluginHost.cpp client/ClientSession.cpp client/Recording.cpp
    client/values/CellText.cpp client/values/PageValues.cpp client/values/ValueText.cpp)
"${lupdate[@]}" -target-language zh_CN "${texts[@]}" -ts "$catalogues/tavdesk_zh_CN.ts"
"${lupdate[@]}" -target-language en -pluralonly "${texts[@]}" -ts "$catalogues/tavdesk_en.ts"
