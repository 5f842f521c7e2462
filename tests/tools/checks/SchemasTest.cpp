#include "BaselineMistakes.h"
#include "CatalogueMistakes.h"
#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"
#include "JsonSchema.h"
#include "TestFiles.h"
#include "TypeKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace
{
/// Mistakes that lie between values, or outside the file: no schema tells them.
const QStringList beyondSchemas{
    "empty-file",
    "function-in-itself",
    "script-with-argument",
    "doubled-key",
    "duplicate-function",
    "duplicate-function-nested",
    "duplicate-id",
    "duplicate-page",
    "real-parent-not-in-catalogue",
    "real-parent-disabled",
    "byte-order-mark",
    "controller-among-blanks",
    "name-among-blanks",
    "name-blank",
    "name-half-a-character",
    "name-turned-around",
    "name-with-lenient-escape",
    "no-visible-page",
    "parent-itself",
    "title-blank",
    "script-a-directory",
    "script-empty-file",
    "script-line-end",
    "script-linked-outside",
    "script-outside",
    "script-without-interpreter",
    "script-missing",
    "script-not-executable",
    "stray-character",
};

QJsonObject schema(const QString &name)
{
    return QJsonDocument::fromJson(contentOf(TAV_SOURCE_DIR "/share/schemas/" + name + ".schema.json")).object();
}

/// Whether an editor that knows the schema refuses @p document; not for a text that is no JSON.
bool refuses(const QJsonObject &schema, const QJsonDocument &document)
{
    const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    return !document.isNull() && !conforms(schema, value);
}

/// Whether the schema is to refuse the file with this mistake.
bool isForSchema(const Mistake &mistake)
{
    return !beyondSchemas.contains(mistake.file) && !QString(mistake.problem).startsWith("not ");
}
}

TEST(Schemas, AloneRefuseEachBrokenFileThatASchemaCanTell)
{
    for (const Mistake &mistake : catalogueMistakes) {
        const QByteArray text = contentOf(broken + "/catalogue/" + mistake.file + ".json");
        EXPECT_EQ(refuses(schema("funcTypeConfig"), QJsonDocument::fromJson(QByteArray::fromBase64(text))),
                  isForSchema(mistake))
            << mistake.file;
    }
    for (const Mistake &mistake : baselineMistakes) {
        const QByteArray text = contentOf(broken + "/baseline/" + mistake.file + ".json");
        EXPECT_EQ(refuses(schema("baseline"), QJsonDocument::fromJson(text)), isForSchema(mistake)) << mistake.file;
    }
}

TEST(Schemas, AcceptTheDemo)
{
    const QByteArray catalogue = contentOf(demoRoot + "/etc/tavsec.d/funcTypeConfig.json");
    const QByteArray baseline = contentOf(demoRoot + "/etc/tavsec.d/baselineConfig/baseline.json");
    EXPECT_FALSE(refuses(schema("funcTypeConfig"), QJsonDocument::fromJson(QByteArray::fromBase64(catalogue))));
    EXPECT_FALSE(refuses(schema("baseline"), QJsonDocument::fromJson(baseline)));
}

TEST(Schemas, NameTheTypesThatThePluginKnows)
{
    const QJsonObject definitions = schema("funcTypeConfig")["definitions"].toObject();
    EXPECT_EQ(definitions["functionType"]["enum"].toArray(),
              QJsonArray::fromStringList(typeKeys<CTavFuncTypeHeader::TavFuncTypeHeader_>()));
    EXPECT_EQ(definitions["pageType"]["enum"].toArray(),
              QJsonArray::fromStringList(typeKeys<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>()));
}
