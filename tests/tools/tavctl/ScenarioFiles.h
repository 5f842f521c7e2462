#pragma once

#include "TextFile.h"

#include <QTemporaryDir>

/// @brief A scenario in a file of its own, of these lines behind the first.
class ScenarioFile
{
public:
    explicit ScenarioFile(const QByteArray &lines)
    {
        writeFile(path(), "{\"tavScenario\": 1, \"title\": \"for a test\"}\n" + lines);
    }

    QString path() const
    {
        return m_directory.filePath("test.jsonl");
    }

private:
    QTemporaryDir m_directory;
};

/// Sets a state, looks at it, and shows a page.
const QByteArray soundLines = R"({"manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 7}]}
{"at": 0.2, "manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": {"state": 7}}
{"at": 0.3, "thread": "gui", "page": "SubFunc_LogAudit"}
)";

/// Wants to be returned what was not set.
const QByteArray otherLines = R"({"manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": 7}]}
{"manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": {"state": 8}}
)";
