#include "BaselineCheck.h"

#include "PrintQString.h"

#include <gtest/gtest.h>

// The kinds of input on which readers of JSON differ, each as the text of a list of check items.

namespace
{
/// The codes of what is found in the text itself, whatever it holds.
QStringList codesOfText(const QByteArray &text)
{
    QStringList codes;
    const Findings findings = checkBaseline("file", text);
    for (const Finding &finding : findings) {
        if (finding.code < FindingCode::WrongType || finding.code == FindingCode::ByteOrderMark
            || finding.code == FindingCode::LenientText) {
            codes.append(finding.kind().name());
            EXPECT_GE(finding.place.line, 1) << text.toStdString();
            EXPECT_LE(finding.place.line, text.count('\n') + 1) << text.toStdString();
        }
    }
    return codes;
}
}

TEST(JsonInput, IsTakenWhereEveryReaderTakesIt)
{
    const QByteArray texts[] = {
        // arrays
        "[[]   ]", "[\"\"]", "[]", "[false]", "[null, 1, \"1\", {}]", "[1\n]", " [1]", "[1,null,null,null,2]", "[2] ",
        // numbers
        "[123e65]", "[0e+1]", "[0e1]", "[-0]", "[-1]", "[1E22]", "[1E-2]", "[1E+2]", "[123.456e78]", "[123.456789]",
        "[-0.000000000000000000000000000000000000000000000000000000000001]",
        // objects
        "{}", "{\"a\":\"b\"}", "{\"\":0}", "{\"foo\\u0000bar\": 42}", "{\"a\":[]}", "{\n\"a\": \"b\"\n}",
        "{ \"min\": -1.0e+28, \"max\": 1.0e+28 }", "{\"a\":1,\"a\":2}",
        // texts
        "[\"\\u0060\\u012a\\u12AB\"]", "[\"\\uD801\\udc37\"]", "[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"]", "[\"\\\\u0000\"]",
        "[\"a/*b*/c/*d//e\"]", "[\"\\uFFFF\"]", "[\"\xf4\x8f\xbf\xbf\"]", "[\"\xe2\x80\xa8\"]", "[\"\x7f\"]",
        // structure
        "[true]", "[\"a\"]\n\n", " [] "};
    for (const QByteArray &text : texts) {
        EXPECT_EQ(codesOfText(text), QStringList()) << text.toStdString();
    }
}

TEST(JsonInput, IsRefusedWhereItIsNone)
{
    const QByteArray texts[] = {
        // arrays
        "[1 true]", "[\"\": 1]", "[\"\"],", "[,1]", "[1,,2]", "[\"x\",,]", "[\"x\"]]", "[\"x\"", "[x", "[3[4]]",
        "[1:2]", "[,]", "[-]", "[   , \"\"]", "[\"a\",\n4\n,1,", "[1,]", "[*]", "[\"\"", "[1,\n1\n,1", "[{}", "[\x0b]",
        // words
        "[fals]", "[nul]", "[tru]", "[True]", "[truth]",
        // numbers
        "[++1234]", "[+1]", "[+Inf]", "[-01]", "[-1.0.]", "[-NaN]", "[.-1]", "[0.1.2]", "[0.3e+]", "[0.3e]", "[0E+]",
        "[0e]", "[1.0e-]", "[1 000.0]", "[1eE2]", "[Inf]", "[NaN]", "[\xef\xbc\x91]", "[1+2]", "[0x1]", "[0x42]",
        "[Infinity]", "[0e+-1]", "[-123.123foo]", "[-Infinity]", "[- 1]", "[-012]", "[-1x]", "[1ea]", "[012]",
        "[1.8011670033376514H-308]",
        // objects
        "{[: \"x\"}", "{\"x\", null}", "{\"x\"::\"b\"}", "{\"a\":\"a\" 123}", "{key: 'value'}", "{:\"b\"}",
        "{\"a\" \"b\"}", "{\"a\":", "{\"a\"", "{1:1}", "{null:null}", "{\"id\":0,,,,,}", "{'a':0}", "{\"id\":0,}",
        "{\"a\":\"b\"}/**/", "{\"a\":\"b\"}//", "{\"a\":\"b\"}#", "{\"a\":/*comment*/\"b\"}",
        "{ \"foo\" : \"bar\", \"a\" }",
        // texts
        "[\"\\uD800\\u\"]", "[\"\\uD800\\u1x\"]", "[\"\\\\\\\"]", "[\"\\\"]", "[\"\\u00A\"]", "[\"\\uqqqq\"]", "[\\n]",
        "['single quote']", "[\"\xe9\"]", "[\"\xff\"]", "[\"\xed\xa0\x80\"]", "[\"\xc0\xaf\"]",
        "[\"\xf4\xbf\xbf\xbf\"]", "[\"asd]",
        // structure
        "123", "\"asd\"", "null", "abc", "<.>", "[<null>]", "[1]x", "1]", "{\"x\": true,", "[][]", "]", "[", "{}}",
        "{\"a\": true} \"x\"", "[\"a", "[,", "[{", "{]", "{,", "{[", "{\"a", "*", "[\xe2\x81\xa0]", "[\x0c]",
        "\xc2\xa0[]", "\xef\xbb\xbf{}}"};
    for (const QByteArray &text : texts) {
        EXPECT_EQ(codesOfText(text).value(0), "TAV102") << text.toStdString();
    }
    for (const QByteArray &text : {QByteArray("[1]\0", 4), QByteArray("[1000\0]", 7)}) {
        EXPECT_EQ(codesOfText(text), QStringList{"TAV102"}) << text.toStdString();
    }
    EXPECT_EQ(codesOfText(QByteArray(100'000, '[')), QStringList{"TAV102"});
    EXPECT_EQ(codesOfText(QByteArray("{\"a\":").repeated(100'000)), QStringList{"TAV102"});
}

TEST(JsonInput, IsNamedWhereThePluginsReaderAloneTakesIt)
{
    const QByteArray texts[] = {"[-2.]",  "[.2e-3]",      "[0.e1]",          "[2.e+3]",  "[-.123]",      "[1.]",
                                "[.123]", "{\"\\a\": 1}", "[\"new\nline\"]", "[\"\t\"]", "[\"a\x01z\"]", "[\"\\x00\"]"};
    for (const QByteArray &text : texts) {
        EXPECT_EQ(codesOfText(text), QStringList{"TAV119"}) << text.toStdString();
    }
    EXPECT_EQ(codesOfText("\xef\xbb\xbf[]"), QStringList{"TAV118"});
    EXPECT_EQ(codesOfText(QByteArray("[\"a\0a\"]", 7)), QStringList{"TAV119"});
}
