#pragma once

#include "TextFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

const QString demoRoot = QStringLiteral(TAV_SOURCE_DIR "/share/demo");
const QString brokenRoot = QStringLiteral(TAV_SOURCE_DIR "/tests/data/broken-root"); ///< has one mistake of each kind
const QString broken = QStringLiteral(TAV_SOURCE_DIR "/tests/data/broken"); ///< has one mistake in each file

/// The JSON text of a catalogue without mistakes.
const QByteArray onePage = R"json([{"funcType": "Func_HostInfo", "funcTitle": "主机信息", "funcIcon": "hostIcon",
    "subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "审计日志", "subFuncClassName": "I"}]}])json";

/// @brief A directory for the files of one test.
class TestFiles : public testing::Test
{
protected:
    QString put(const QString &name, const QByteArray &content)
    {
        writeFile(directory.filePath(name), content);
        return directory.filePath(name);
    }

    QString putCatalogue(const QByteArray &json)
    {
        return put("catalogue", json.toBase64());
    }

    QTemporaryDir directory;
};
