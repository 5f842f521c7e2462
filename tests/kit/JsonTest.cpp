#include "ExtremeValue.h"
#include "TavCallError.h"
#include "TavOperations.h"

#include "AccessControl.pb.h"
#include "Base.pb.h"
#include "DevControl.pb.h"
#include "HostInfo.pb.h"
#include "Measure.pb.h"
#include "NetControl.pb.h"
#include "Reinforce.pb.h"
#include "SystemConfig.pb.h"
#include "SystemProtect.pb.h"

#include <QJsonDocument>

#include <google/protobuf/util/json_util.h>
#include <google/protobuf/wrappers.pb.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using google::protobuf::Message;

namespace
{
/// The value that a JSON text gives which @p json was written to: what a file or a pipe would do to it.
QJsonValue throughText(const QJsonValue &json)
{
    return QJsonDocument::fromJson(QJsonDocument(QJsonArray{json}).toJson()).array().first();
}

template<class Type>
void expectRoundTrip(const char *what)
{
    for (int seed = 0; seed < ExtremeValue::seedCount; ++seed) {
        const Type value = ExtremeValue::make<Type>(seed);
        const QJsonValue json = throughText(TavJson::toJson(value));
        try {
            EXPECT_TRUE(ExtremeValue::areEqual(TavJson::fromJson<Type>(json), value)) << what << ", seed " << seed;
        } catch (const TavCallError &error) {
            ADD_FAILURE() << what << ", seed " << seed << ": " << error.what();
        }
    }
}

/// What @p convert says is wrong; empty when nothing is.
template<class Convert>
std::string problemOf(const Convert &convert)
{
    try {
        static_cast<void>(convert());
        return {};
    } catch (const TavCallError &error) {
        return error.what();
    }
}

/// The same of reading @p text as the type.
template<class Type>
std::string problem(const char *text)
{
    const QJsonDocument document = QJsonDocument::fromJson('[' + QByteArray(text) + ']');
    EXPECT_EQ(document.array().size(), 1) << text;
    return problemOf([&] { return TavJson::fromJson<Type>(document.array().first()); });
}

std::vector<const google::protobuf::Descriptor *> allMessages()
{
    std::vector<const google::protobuf::Descriptor *> all;
    for (const auto *const file :
         {Tav::AccessControl::AccessModeConfig::descriptor()->file(), Tav::Base::CommandStateAsr::descriptor()->file(),
          Tav::DevControl::DevUsbInfoList::descriptor()->file(),
          Tav::HostInfo::SystemFileStateAsr::descriptor()->file(), Tav::Measure::ImaCountAsr::descriptor()->file(),
          Tav::NetControl::NetDeviceInfos::descriptor()->file(), Tav::Reinforce::LineCountAsr::descriptor()->file(),
          Tav::SystemConfig::LoginCheckAsr::descriptor()->file(),
          Tav::SystemProtect::FileSmashAsr::descriptor()->file()}) {
        for (int i = 0; i < file->message_type_count(); ++i) {
            all.push_back(file->message_type(i));
        }
    }
    return all;
}

std::unique_ptr<Message> newMessage(const google::protobuf::Descriptor *type)
{
    return std::unique_ptr<Message>(google::protobuf::MessageFactory::generated_factory()->GetPrototype(type)->New());
}
}

TEST(Json, LosesNothingOfAnyArgument)
{
    TavOperations::forEachOperation([](const auto &operation) {
        std::apply(
            [&](const auto &...values) {
                (expectRoundTrip<std::decay_t<decltype(values)>>(operation.name.data()), ...);
            },
            typename std::decay_t<decltype(operation)>::Values());
    });
}

TEST(Json, LosesNothingOfAnyResultThatIsARecord)
{
    TavFields::Records::forEach([](auto tag) { expectRoundTrip<typename decltype(tag)::type>("record"); });
}

TEST(Json, OfMessagesIsThatOfTheMessageLibrary)
{
    google::protobuf::util::JsonPrintOptions options;
    options.preserve_proto_field_names = true;
    for (const auto *const type : allMessages()) {
        for (int seed = 0; seed < ExtremeValue::seedCount; ++seed) {
            const std::unique_ptr<Message> message = newMessage(type);
            ExtremeValue::fill(*message, seed);
            const QJsonObject json = TavJson::messageToJson(*message);
            // The library drops what is not UTF-8; the round trip has tested that.
            if (QJsonDocument(json).toJson().contains("\"bytes\": \"")) {
                continue;
            }
            std::string text;
            ASSERT_TRUE(google::protobuf::util::MessageToJsonString(*message, &text, options).ok());
            EXPECT_EQ(json, QJsonDocument::fromJson(QByteArray::fromStdString(text)).object())
                << type->full_name() << ", seed " << seed;

            const std::unique_ptr<Message> read = newMessage(type);
            const std::string own = QJsonDocument(json).toJson().toStdString();
            ASSERT_TRUE(google::protobuf::util::JsonStringToMessage(own, read.get()).ok()) << own;
            EXPECT_EQ(read->SerializeAsString(), message->SerializeAsString()) << type->full_name();
        }
    }
}

TEST(Json, OfAnEnumerationIsItsKey)
{
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;
    EXPECT_EQ(TavJson::toJson(CTavSubFuncTypeHeader::SubFunc_LogAudit), QJsonValue("SubFunc_LogAudit"));
    EXPECT_EQ(TavJson::toJson(static_cast<Page>(-1)), QJsonValue(-1));
    EXPECT_EQ(TavJson::fromJson<Page>("SubFunc_LogAudit"), CTavSubFuncTypeHeader::SubFunc_LogAudit);
    EXPECT_EQ(TavJson::fromJson<Page>(14), CTavSubFuncTypeHeader::SubFunc_LogAudit);
    EXPECT_EQ(problem<Page>("\"SubFunc_logAudit\""),
              "TavSubFuncTypeHeader_ has no key \"SubFunc_logAudit\" (nearest: SubFunc_LogAudit)");
    EXPECT_NE(problem<Page>("\"\""), "");
    const std::string expected = "expected a key of TavSubFuncTypeHeader_ or its number, not ";
    EXPECT_EQ(problem<Page>("null"), expected + "null");
    EXPECT_EQ(problem<Page>("2147483648"), expected + "the number 2147483648");
}

TEST(Json, TellsTextThatIsNotUtf8ByItsBytes)
{
    Tav::Base::CommandStateAsr message;
    message.set_message("\xff");
    const QJsonObject bytes{{"bytes", "/w=="}};
    EXPECT_EQ(TavJson::toJson(message), QJsonValue(QJsonObject{{"message", bytes}}));
    EXPECT_EQ(TavJson::fromJson<Tav::Base::CommandStateAsr>(QJsonObject{{"message", bytes}}).message(), "\xff");
}

TEST(Json, OfCharactersThatNoBytesTellIsRefused)
{
    EXPECT_EQ(problemOf([] { return TavJson::toJson(QString(QChar(0xfeff)) + QChar(0xd83d)); }),
              "a text begins with a byte order mark and holds half a character: no JSON tells it");
    EXPECT_EQ(problem<QString>(R"({"bytes": "/w=="})"),
              "/bytes: the bytes are not UTF-8, and this text is made of characters");
}

TEST(Json, FillsABufferToItsEnd)
{
    char buffer[] = {'x', 'x', 'x', 'x'};
    TavJson::bufferFromJson("a", buffer, sizeof(buffer));
    EXPECT_EQ(std::string(buffer, sizeof(buffer)), std::string("a\0\0\0", 4));
}

TEST(Json, OfAFullBufferWithoutNulIsItsBytes)
{
    STStaticCurPathAsr record;
    std::memset(record.path, 'x', sizeof(record.path));
    const QJsonValue json = TavJson::toJson(record);
    EXPECT_EQ(json["path"]["bytes"].toString().size(), (TavTextLimits::Path + 2) / 3 * 4);
    EXPECT_TRUE(ExtremeValue::areEqual(TavJson::fromJson<STStaticCurPathAsr>(json), record));
}

TEST(Json, ReadsNumbersOf64BitsAsTextOrWithinWhatADoubleHolds)
{
    EXPECT_EQ(TavJson::fromJson<qint64>("-9223372036854775808"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(TavJson::fromJson<quint64>("18446744073709551615"), std::numeric_limits<quint64>::max());
    EXPECT_EQ(TavJson::fromJson<qint64>(5), 5);
    const std::string expected = "expected a whole number of 64 bits, as text beyond 2^53, not ";
    EXPECT_EQ(problem<qint64>("9007199254740992"), "");
    EXPECT_EQ(problem<qint64>("-9007199254740992"), "");
    EXPECT_EQ(problem<quint64>("0"), "");
    EXPECT_EQ(problem<qint64>("9007199254740993"), expected + "the number 9007199254740993");
    EXPECT_EQ(problem<qint64>("1.5"), expected + "the number 1.5");
    EXPECT_EQ(problem<qint64>("\"9223372036854775808\""), expected + "the text \"9223372036854775808\"");
    for (const char *text : {"\"\"", "\"07\"", "\"+7\"", "\" 7\"", "\"7.0\"", "\"0x7\"", "null", "true"}) {
        EXPECT_NE(problem<qint64>(text), "") << text;
        EXPECT_NE(problem<quint64>(text), "") << text;
    }
    EXPECT_EQ(problem<quint64>("-1"),
              "expected a whole number of 64 bits that is not negative, as text beyond 2^53, not the number -1");
    EXPECT_NE(problem<quint64>("\"-1\""), "");
}

TEST(Json, NamesThePlaceOfWhatItCannotRead)
{
    EXPECT_EQ(problem<QVector<STPriAddUIData>>(R"([{}, {"userName": 7}])"),
              "/1/userName: expected a text, or {\"bytes\": \"<Base64>\"} for one that is not UTF-8, not the number 7");
    EXPECT_EQ(
        problem<Tav::NetControl::NetDeviceInfos>(R"({"devices": [{}, {"addresses": ["a", null]}]})"),
        R"(/devices/1/addresses/1: expected a text, or {"bytes": "<Base64>"} for one that is not UTF-8, not null)");
    EXPECT_EQ(problem<Tav::NetControl::NetDeviceInfos>(R"({"devices": [{"names": "eth0"}]})"),
              "/devices/0/names: unknown key (nearest: name)");
    EXPECT_EQ(problem<STAccessSetUIData>(R"({"labels": ["a", 1]})"),
              "/labels/1: expected a text, or {\"bytes\": \"<Base64>\"} for one that is not UTF-8, not the number 1");
}

TEST(Json, RefusesWhatIsNotOfTheType)
{
    EXPECT_EQ(problem<bool>("1"), "expected true or false, not the number 1");
    const QByteArray letters(40, 'x');
    EXPECT_EQ(problem<bool>(QByteArray('"' + letters + '"').constData()),
              "expected true or false, not the text \"" + letters.toStdString() + '"');
    EXPECT_EQ(problem<bool>(QByteArray('"' + letters + "x\"").constData()),
              "expected true or false, not the text \"" + letters.toStdString() + "…\"");
    EXPECT_EQ(problem<int>("2147483648"),
              "expected a whole number from -2147483648 to 2147483647, not the number 2147483648");
    EXPECT_EQ(problem<int>("\"7\""), "expected a whole number from -2147483648 to 2147483647, not the text \"7\"");
    EXPECT_EQ(problem<int>("true"), "expected a whole number from -2147483648 to 2147483647, not true");
    EXPECT_EQ(problem<int>("false"), "expected a whole number from -2147483648 to 2147483647, not false");
    EXPECT_EQ(problem<quint32>("-1"), "expected a whole number from 0 to 4294967295, not the number -1");
    EXPECT_EQ(problem<QVector<STStateInfo>>("{}"), "expected an array, not an object");
    EXPECT_EQ(problem<STStateInfo>("[]"), "expected an object, not an array");
    EXPECT_EQ(problem<STStateInfo>("null"), "expected an object, not null");
    EXPECT_EQ(problem<STStateInfo>(R"({"itemtext": ""})"), "/itemtext: unknown key (nearest: itemText)");
    EXPECT_EQ(problem<Tav::Base::CommandStateAsr>(R"({"state": 1.5})"),
              "/state: expected a whole number from -2147483648 to 2147483647, not the number 1.5");
    EXPECT_EQ(problem<STProtoDataContainer>(R"({"protoData": "YQ"})"),
              "/protoData: expected bytes in Base64, padded with = to a multiple of four, not the text \"YQ\"");
    EXPECT_EQ(problem<Tav::Base::CommandStateAsr>(R"({"message": {"bytes": "YQ==", "more": 1}})"),
              "/message/more: unknown key (there are: bytes)");
    EXPECT_EQ(problem<Tav::Base::CommandStateAsr>(R"({"message": {}})"),
              "/message/bytes: expected bytes in Base64, padded with = to a multiple of four, not nothing");
}

TEST(Json, RefusesATextThatItsBufferCannotHold)
{
    const QByteArray longest(TavTextLimits::ProcessName - 1, 'x');
    const auto named = [](const QByteArray &text) { return R"({"name": ")" + text + R"("})"; };
    EXPECT_EQ(problem<STProProtectContentAsr>(named(longest)), "");
    EXPECT_EQ(problem<STProProtectContentAsr>(named(longest + 'x')),
              "/name: the text is 16 bytes long, and its buffer takes 15");
    EXPECT_EQ(problem<STProProtectContentAsr>(named("a\\u0000b")),
              "/name: the text holds a NUL, where the buffer's text would end");
    EXPECT_EQ(problem<STProProtectContentAsr>(named("\\ud800")),
              "/name: the text holds half a character, a \\ud800 to \\udfff without its other half");
}

TEST(Json, DoesNotDropFieldsThatADefinitionDoesNotKnow)
{
    Tav::Base::CommandStateAsr message;
    ASSERT_TRUE(message.ParseFromString(std::string("\x98\x06\x01", 3))); // field 99
    EXPECT_EQ(problemOf([&] { return TavJson::toJson(message); }),
              "the message Tav.Base.CommandStateAsr holds field 99, which its definition here does not know");
}

TEST(Json, OfAMessageHasItsFieldsOnly)
{
    EXPECT_EQ(problem<Tav::Base::CommandStateAsr>(R"({"xyz": 1})"),
              "/xyz: unknown key (there are: command, state, message)");
    QStringList names;
    for (const auto *const type : allMessages()) {
        for (int i = 0; i < type->field_count(); ++i) {
            names.append(QString::fromStdString(type->field(i)->name()));
        }
    }
    names.removeDuplicates();
    for (const auto *const type : allMessages()) {
        const std::unique_ptr<Message> message = newMessage(type);
        for (const QString &name : names) {
            const std::string refusal = problemOf([&] {
                TavJson::messageFromJson(QJsonObject{{name, QJsonArray{1.5}}}, *message);
            });
            EXPECT_EQ(refusal.find(": unknown key (") == std::string::npos,
                      type->FindFieldByName(name.toStdString()) != nullptr)
                << type->full_name() << ": " << refusal;
        }
    }
}

TEST(Json, OfAMessageHasNoFieldsOfOtherKinds)
{
    google::protobuf::DoubleValue message;
    message.set_value(1);
    const std::string problem = "google.protobuf.DoubleValue.value: no JSON is known for fields of type double";
    EXPECT_EQ(problemOf([&] { return TavJson::messageToJson(message); }), problem);
    EXPECT_EQ(problemOf([&] { TavJson::messageFromJson(QJsonObject{{"value", 1}}, message); }), "/value: " + problem);
}

TEST(Json, OfAnObjectIsTheNameOfItsClass)
{
    const QObject object;
    EXPECT_EQ(TavJson::objectToJson(&object), QJsonValue("QObject"));
    EXPECT_EQ(TavJson::objectToJson(nullptr), QJsonValue(QJsonValue::Null));
}

TEST(Json, OfAPictureIsItsSizeAndFormat)
{
    EXPECT_EQ(TavJson::toJson(std::make_shared<QImage>(3, 2, QImage::Format_ARGB32)),
              QJsonValue(QJsonObject{{"width", 3}, {"height", 2}, {"format", "Format_ARGB32"}}));
    EXPECT_EQ(TavJson::toJson(std::shared_ptr<QImage>()), QJsonValue(QJsonValue::Null));
}
