#include "TwoSystemRoots.h"

#include "TavGlobalInfoMgr.h"
#include "TextFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
QJsonObject func(QChar letter, const char *type, int number)
{
    return {{"funcType", type}, {"funcTitle", TwoSystemRoots::text(letter, number)}};
}

QJsonObject subFunc(QChar letter, const char *type, int number)
{
    return {{"subFuncType", type}, {"subFuncTitile", TwoSystemRoots::text(letter, number)}};
}

QJsonArray catalogue(QChar letter)
{
    QJsonObject first = func(letter, "Func_HostInfo", 1);
    first["subFunList"]
        = QJsonArray{subFunc(letter, "SubFunc_serverResourceInfo", 1), subFunc(letter, "SubFunc_BaselineScan", 2)};
    QJsonObject third = func(letter, "Func_SystemAudit", 3);
    third["subFunList"] = QJsonArray{subFunc(letter, "SubFunc_LogAudit", 3)};
    QJsonObject second = func(letter, "Func_SystemProtect", 2);
    second["funcList"] = QJsonArray{third};
    return {first, second};
}

QJsonObject checkItems(QChar letter)
{
    QJsonArray items;
    for (int id = 1; id <= TwoSystemRoots::itemCount; ++id) {
        const QString text = TwoSystemRoots::text(letter, id);
        items.append(QJsonObject{{"itemId", id},
                                 {"name", text},
                                 {"standardValue", text},
                                 {"desc", text},
                                 {"checkValueScript", text},
                                 {"btntext", text},
                                 {"type", 3}});
    }
    return {{"enableConfig", items}};
}
}

TwoSystemRoots::TwoSystemRoots()
{
    const QString configuration = m_dir.path() + "/%1/etc/tavsec.d/";
    for (const QChar letter : {'A', 'B'}) {
        const QByteArray json = QJsonDocument(catalogue(letter)).toJson();
        writeFile(configuration.arg(letter) + "funcTypeConfig.json", json.toBase64());
        writeFile(configuration.arg(letter) + "baselineConfig/baseline.json",
                  QJsonDocument(checkItems(letter)).toJson());
    }
    writeFile(configuration.arg("broken") + "funcTypeConfig.json", "not a catalogue");
    writeFile(configuration.arg("broken") + "baselineConfig/baseline.json", "not check items");
}

void TwoSystemRoots::useGood(int seed) const
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(m_dir.path() + (seed % 2 == 0 ? "/A" : "/B"));
}

void TwoSystemRoots::useAny(int seed) const
{
    if (seed % 3 == 2) {
        TavGlobalInfoMgr::getInstance()->setSystemRoot(m_dir.path() + "/broken");
    } else {
        useGood(seed % 3);
    }
}

QString TwoSystemRoots::text(QChar letter, int number)
{
    return QStringLiteral("%1 %2: a text that is long enough to be copied in parts").arg(letter).arg(number);
}

bool TwoSystemRoots::isText(const QString &text, int number, QChar &letter)
{
    letter = text.isEmpty() ? QChar() : text[0];
    return (letter == 'A' || letter == 'B') && text == TwoSystemRoots::text(letter, number);
}
