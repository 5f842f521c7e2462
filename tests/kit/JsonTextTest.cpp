#include "TavJsonText.h"

#include "PrintQString.h"

#include <gtest/gtest.h>

namespace
{
using Texts = QSet<QString>;

/// Where a text ceases to be JSON, and why: "line:column (offset) reason".
QString errorIn(const QByteArray &text)
{
    const TavJsonText json(text);
    EXPECT_TRUE(json.document().isNull());
    return QString("%1:%2 (%3) ").arg(json.errorPlace().line).arg(json.errorPlace().column).arg(json.errorOffset())
        + json.error();
}

/// What the value at @p path and its key take of @p text, and where it begins: "key=value line:column".
QString valueAt(const QString &path, const QByteArray &text)
{
    const TavJsonText json(text);
    EXPECT_EQ(json.error(), "");
    const QHash<QString, TavJsonText::Value> values = json.valuesAt({path});
    EXPECT_LE(values.size(), 1);
    const TavJsonText::Value value = values.value(path);
    const auto textOf
        = [&text](const TextRange &range) { return QString::fromUtf8(text.mid(range.offset, range.length)); };
    return value.range.offset < 0 ? QString()
                                  : (value.key.offset < 0 ? QString() : textOf(value.key) + '=') + textOf(value.range)
            + QString(" %1:%2").arg(value.place.line).arg(value.place.column);
}
}

TEST(JsonText, SaysWhyItIsNoJsonAndWhere)
{
    EXPECT_EQ(errorIn(""), "1:1 (0) the text is empty");
    EXPECT_EQ(errorIn(" \n"), "1:2 (1) the text is empty");
    EXPECT_EQ(errorIn("[1] // no"), "1:5 (4) JSON has no comments");
    EXPECT_EQ(errorIn("[1] /* no */"), "1:5 (4) JSON has no comments");
    EXPECT_EQ(errorIn("[1,\n\xc2\xa0"
                      "2]"),
              "2:1 (4) a no-break space (U+00A0) stands here, which JSON has only in strings");
    EXPECT_EQ(errorIn("{1}"), "1:2 (1) a name, \",\" or \"}\" is expected here");
    EXPECT_EQ(errorIn("{\"a\" 1}"), "1:6 (5) \":\" is expected here");
    EXPECT_EQ(errorIn("[1 2]"), "1:4 (3) \",\" or \"]\" is expected here");
    EXPECT_EQ(errorIn("{\"a\": 1 \"b\": 2}"), "1:9 (8) a name, \",\" or \"}\" is expected here");
    EXPECT_EQ(errorIn("{\"a\": 1,}"), "1:9 (8) nothing stands behind the last comma: remove it");
    EXPECT_EQ(errorIn("[,1]"), "1:2 (1) a value is expected here");
    EXPECT_EQ(errorIn("{\"a\": }"), "1:7 (6) a value is expected here");
    EXPECT_EQ(errorIn("[\"\\u12\"]"), "1:6 (5) invalid escape sequence");
    EXPECT_EQ(errorIn("x"), "1:1 (0) the text must begin with [ or {");
    EXPECT_EQ(errorIn("\xef\xbb\xbf 1"), "1:2 (4) the text must begin with [ or {");
    EXPECT_EQ(errorIn("[\"a"), "1:4 (3) the text ends too early");
    EXPECT_EQ(errorIn("[1] 2"), "1:5 (4) the text goes on behind its end");
    EXPECT_EQ(errorIn("[1, 1e]"), "1:5 (4) this is no number, nor another value");
    EXPECT_EQ(errorIn("[\"ab\xff\"]"), "1:5 (4) this is not UTF-8");
    EXPECT_EQ(errorIn(QByteArray(1025, '[')), "1:1025 (1024) nested deeper than the reader's 1024 levels");
}

TEST(JsonText, SaysThatItIsUtf16)
{
    const QString error = "1:1 (0) the text is UTF-16, and the reader wants UTF-8";
    EXPECT_EQ(errorIn(QByteArray("\xff\xfe[\0]\0", 6)), error);
    EXPECT_EQ(errorIn(QByteArray("\xfe\xff\0[\0]", 6)), error);
    EXPECT_EQ(errorIn(QByteArray("[\0]\0", 4)), error);
    EXPECT_EQ(errorIn(QByteArray("\0[\0]", 4)), error);
    EXPECT_TRUE(isUtf16(QByteArray("[\0", 2)));
    EXPECT_FALSE(isUtf16("[]"));
    EXPECT_FALSE(isUtf16(QByteArray("\0\0[]", 4)));
    EXPECT_FALSE(isUtf16("["));
}

TEST(JsonText, CountsLinesAndCharacters)
{
    const QByteArray text = "\xef\xbb\xbfi\xe4\xb8\xbb\nij\n";
    const struct {
        int offset, line, column;
    } rows[] = {{0, 1, 1}, {3, 1, 1}, {4, 1, 2}, {7, 1, 3}, {8, 2, 1}, {9, 2, 2}, {10, 2, 3}, {11, 3, 1}, {99, 3, 1}};
    PlaceCounter counter(text);
    for (const auto &row : rows) {
        for (const TextPlace &place : {counter.at(row.offset), placeAt(text, row.offset)}) {
            EXPECT_EQ(place.line, row.line) << row.offset;
            EXPECT_EQ(place.column, row.column) << row.offset;
        }
    }
}

TEST(JsonText, FindsItsValues)
{
    const QByteArray text = R"( {"a": [1, {"b" :"x,\"}]"} , 2.5 ],
 "c\u0064":{} ,"e":
true, "f/g": null, "~": 0})";
    EXPECT_EQ(valueAt("", text), QString::fromUtf8(text.mid(1)) + " 1:2");
    EXPECT_EQ(valueAt("/a", text), R"("a"=[1, {"b" :"x,\"}]"} , 2.5 ] 1:8)");
    EXPECT_EQ(valueAt("/a/0", text), "1 1:9");
    EXPECT_EQ(valueAt("/a/1", text), R"({"b" :"x,\"}]"} 1:12)");
    EXPECT_EQ(valueAt("/a/1/b", text), R"("b"="x,\"}]" 1:18)");
    EXPECT_EQ(valueAt("/a/2", text), "2.5 1:30");
    EXPECT_EQ(valueAt("/a/3", text), "");
    EXPECT_EQ(valueAt("/cd", text), R"("c\u0064"={} 2:12)");
    EXPECT_EQ(valueAt("/e", text), R"("e"=true 3:1)");
    EXPECT_EQ(valueAt("/f~1g", text), R"("f/g"=null 3:14)");
    EXPECT_EQ(valueAt("/~0", text), R"("~"=0 3:25)");
    EXPECT_EQ(valueAt("/e", "\xef\xbb\xbf{\"e\":\t1}"), "\"e\"=1 1:7");

    const QHash<QString, TavJsonText::Value> values = TavJsonText(text).valuesAt({"/e", "/a/0", "/none"});
    EXPECT_EQ(Texts(values.keyBegin(), values.keyEnd()), Texts({"/e", "/a/0"}));
    EXPECT_TRUE(TavJsonText(text).valuesAt({}).isEmpty());
    EXPECT_TRUE(TavJsonText("[1").valuesAt({""}).isEmpty());
}

TEST(JsonText, PlacesNothingThatThereIsNot)
{
    const TavJsonText::Value none;
    EXPECT_EQ(none.place.line, 0);
    EXPECT_EQ(none.place.column, 0);
    EXPECT_EQ(none.range.offset, -1);
    EXPECT_EQ(none.range.length, 0);
}

TEST(JsonText, HoldsAnArrayOrAnObject)
{
    EXPECT_EQ(TavJsonText("[1]").document()[0].toInt(), 1);
    EXPECT_EQ(TavJsonText("{\"a\": 1}").document()["a"].toInt(), 1);
    EXPECT_EQ(TavJsonText("[]").errorOffset(), -1);
    EXPECT_EQ(TavJsonText("[]").errorPlace().line, 0);
    EXPECT_TRUE(TavJsonText("\xef\xbb\xbf[]").hasByteOrderMark());
    EXPECT_FALSE(TavJsonText("[]").hasByteOrderMark());
}

TEST(JsonText, NamesTheKeysThatStandTwice)
{
    EXPECT_EQ(TavJsonText(R"({"a": 1, "b": {"a": 2}, "c": [{"a": 3}, {"a": 4}]})").doubledKeys(), Texts());
    EXPECT_EQ(TavJsonText(R"({"a": 1, "\u0061": 2, "c": [{"b": 3, "d": 4, "b": 5}]})").doubledKeys(),
              Texts({"/a", "/c/0/b"}));
}

TEST(JsonText, NamesTheStringsThatTheReaderAloneTakes)
{
    EXPECT_EQ(TavJsonText(R"(["\"\\\/\b\f\n\r\t\u0041 ~", {"\"\\\/\b\f\n\r\t\u0041 ~": ""}])").lenientStrings(),
              Texts());
    EXPECT_EQ(TavJsonText("[\"\x1f\", \"a\\x\", {\"\\q\": 1}, \"\n\", \"\\\\x\", \" \"]").lenientStrings(),
              Texts({"/0", "/1", "/2/q", "/3"}));
}

TEST(JsonText, NamesTheNumbersThatTheReaderAloneTakes)
{
    EXPECT_EQ(TavJsonText("[0.0, 9.9, -1.5e3, 1e5, \".\", \"1.\"]").lenientNumbers(), Texts());
    EXPECT_EQ(TavJsonText("[1., .5, -.5, {\"a\": 0.e1}]").lenientNumbers(), Texts({"/0", "/1", "/2", "/3/a"}));
}
