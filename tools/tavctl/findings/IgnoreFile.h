#pragma once

#include "FindingKind.h"

#include <set>

/// The file tavctl.json beside a configuration says what is to be ignored there, and why:
/// {"ignore": {"TAV506": "the old client loads it itself"}}.
namespace IgnoreFile
{
/// The codes that the file in @p directory names; none when there is no such file. Throws ToolError for a mistake in
/// it.
std::set<FindingCode> codesIn(const QString &directory);
}
