#include "PrintQString.h"
#include "Tavctl.h"
#include "TestFiles.h"

#include <gtest/gtest.h>

using CatalogueEncoding = TestFiles;

TEST_F(CatalogueEncoding, GoesThereAndBackByteForByte)
{
    QByteArray everyByte;
    for (int i = 0; i < 1000; ++i) {
        everyByte.append(static_cast<char>(i * 7));
    }
    for (int size : {0, 1, 2, 3, 56, 57, 58, 1000}) {
        const QString plain = put("plain", everyByte.left(size));
        const QString encoded = directory.filePath("encoded");
        const QString decoded = directory.filePath("decoded");
        EXPECT_EQ(Tavctl({"catalogue", "encode", plain, "-o", encoded}).exitCode, 0);
        EXPECT_EQ(Tavctl({"catalogue", "decode", encoded, "--output", decoded}).exitCode, 0);
        EXPECT_EQ(contentOf(decoded), contentOf(plain)) << size;
        EXPECT_EQ(QByteArray::fromBase64(contentOf(encoded)), contentOf(plain)) << size;
        const QList<QByteArray> lines = contentOf(encoded).split('\n');
        for (int i = 0; i < lines.size(); ++i) {
            EXPECT_TRUE(i < lines.size() - 2 ? lines[i].size() == 76 : lines[i].size() <= 76) << size;
        }
        EXPECT_EQ(lines.last(), "") << "the last line is ended";
    }
}

TEST_F(CatalogueEncoding, GivesTheLinesBackThatItIsAskedFor)
{
    const QByteArray base64 = onePage.toBase64();
    QByteArray wrapped;
    for (int i = 0; i < base64.size(); i += 64) {
        wrapped += base64.mid(i, 64) + '\n';
    }
    const struct {
        QByteArray text;
        const char *wrap;
    } rows[] = {{base64, "0"}, {wrapped, "64"}};
    for (const auto &row : rows) {
        const QString plain = put("plain", Tavctl({"catalogue", "decode", put("text", row.text)}).bytes);
        EXPECT_EQ(contentOf(plain), onePage);
        EXPECT_EQ(Tavctl({"catalogue", "encode", plain, "--wrap", row.wrap}).bytes, row.text);
    }
    const QByteArray crlf = QByteArray(wrapped).replace("\n", "\r\n");
    EXPECT_EQ(Tavctl({"catalogue", "decode", put("text", crlf)}).bytes, onePage) << "its line ends do not come back";
    EXPECT_EQ(Tavctl({"catalogue", "encode", put("plain", "1"), "--wrap", "-1"}).exitCode, 2);
}

TEST_F(CatalogueEncoding, LeavesOutWhatThePluginLeavesOut)
{
    const QString stray = put("stray", QByteArray(onePage.toBase64()).insert(9, "*"));
    EXPECT_EQ(Tavctl({"catalogue", "decode", stray}).exitCode, 2);
    EXPECT_EQ(Tavctl({"catalogue", "decode", "--lenient", stray}).bytes, onePage);
    const QString spare = put("spare", "QR==");
    EXPECT_EQ(
        Tavctl({"catalogue", "decode", spare}).errors,
        "tavctl: " + spare
            + ":1:2: not Base64: bits of the last character stand for nothing; --lenient leaves out what is none, "
              "as the plugin does\n");
    EXPECT_EQ(Tavctl({"catalogue", "decode", "--lenient", spare}).bytes, "A");
}

TEST_F(CatalogueEncoding, WritesBytesToStandardOutput)
{
    const QByteArray bytes("\0\xff\r\n\x1b", 5);
    EXPECT_EQ(Tavctl({"catalogue", "decode", "-"}, put("encoded", bytes.toBase64())).bytes, bytes);
}

TEST_F(CatalogueEncoding, MakesTheDemoCatalogueAgain)
{
    const QString catalogue = demoRoot + "/etc/tavsec.d/funcTypeConfig.json";
    const QString decoded = directory.filePath("decoded");
    EXPECT_EQ(Tavctl({"catalogue", "decode", catalogue, "-o", decoded}).exitCode, 0);
    EXPECT_EQ(Tavctl({"catalogue", "encode", decoded}).output.toUtf8(), contentOf(catalogue));
}

TEST_F(CatalogueEncoding, SaysWhereATextIsNone)
{
    struct {
        QByteArray text;
        const char *place;
    } const rows[] = {{"QUJD\nQU*D", ":2:3"}, {"QQ==QUJD", ":1:5"}, {"Q===", ":1:2"},
                      {"QUI==", ":1:5"},      {"QUJDQ", ":1:6"},    {"QUJD-_", ":1:5"}};
    for (const auto &row : rows) {
        const QString file = put("text", row.text);
        const Tavctl run({"catalogue", "decode", file});
        EXPECT_EQ(run.errors,
                  "tavctl: " + file + row.place
                      + ": not Base64; --lenient leaves out what is none, as the plugin does\n");
        EXPECT_EQ(run.exitCode, 2);
    }
}
