#include "Base.pb.h"
#include "NetControl.pb.h"

#include <google/protobuf/util/message_differencer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

using google::protobuf::Descriptor;
using google::protobuf::DescriptorPool;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using google::protobuf::Message;
using google::protobuf::MessageFactory;
using google::protobuf::Reflection;

namespace
{
const Descriptor *messageType(const std::string &name)
{
    return DescriptorPool::generated_pool()->FindMessageTypeByName(name);
}

/// Gives @p field of @p message, or one more element of it, a value that depends on @p seed.
void fillField(Message &message, const FieldDescriptor *field, int seed);

void fill(Message &message, int seed)
{
    for (int i = 0; i < message.GetDescriptor()->field_count(); ++i) {
        const FieldDescriptor *const field = message.GetDescriptor()->field(i);
        for (int element = 0; element < (field->is_repeated() ? 3 : 1); ++element) {
            fillField(message, field, seed + 10 * i + element);
        }
    }
}

void fillField(Message &message, const FieldDescriptor *field, int seed)
{
    const Reflection &reflection = *message.GetReflection();
    const bool isList = field->is_repeated();
    const std::string text = "text \xE6\x96\x87 " + std::to_string(seed);
    switch (field->cpp_type()) {
    case FieldDescriptor::CPPTYPE_INT32:
        isList ? reflection.AddInt32(&message, field, -seed) : reflection.SetInt32(&message, field, -seed);
        break;
    case FieldDescriptor::CPPTYPE_INT64:
        isList ? reflection.AddInt64(&message, field, -seed) : reflection.SetInt64(&message, field, -seed);
        break;
    case FieldDescriptor::CPPTYPE_UINT32:
        isList ? reflection.AddUInt32(&message, field, seed) : reflection.SetUInt32(&message, field, seed);
        break;
    case FieldDescriptor::CPPTYPE_UINT64:
        isList ? reflection.AddUInt64(&message, field, seed) : reflection.SetUInt64(&message, field, seed);
        break;
    case FieldDescriptor::CPPTYPE_BOOL:
        isList ? reflection.AddBool(&message, field, true) : reflection.SetBool(&message, field, true);
        break;
    case FieldDescriptor::CPPTYPE_STRING:
        isList ? reflection.AddString(&message, field, text) : reflection.SetString(&message, field, text);
        break;
    case FieldDescriptor::CPPTYPE_MESSAGE:
        fill(*(isList ? reflection.AddMessage(&message, field) : reflection.MutableMessage(&message, field)), seed);
        break;
    default:
        ADD_FAILURE() << "no value for " << field->full_name();
    }
}

void expectField(const char *message, int number, const char *name, FieldDescriptor::Type type,
                 FieldDescriptor::Label label = FieldDescriptor::LABEL_OPTIONAL)
{
    const FieldDescriptor *const field = messageType(message)->FindFieldByNumber(number);
    ASSERT_NE(field, nullptr) << message << ' ' << number;
    EXPECT_EQ(field->name(), name);
    EXPECT_EQ(field->type(), type) << field->full_name();
    EXPECT_EQ(field->label(), label) << field->full_name();
}

/// The messages that the managers hold, by full name.
class Messages : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        ASSERT_NE(type, nullptr) << GetParam();
    }

    std::unique_ptr<Message> newMessage() const
    {
        return std::unique_ptr<Message>(MessageFactory::generated_factory()->GetPrototype(type)->New());
    }

    const Descriptor *const type = messageType(GetParam());
};
}

TEST_P(Messages, AreOfSyntaxProto2)
{
    EXPECT_EQ(type->file()->syntax(), FileDescriptor::SYNTAX_PROTO2);
}

TEST_P(Messages, ComeFromTheFileOfTheirArea)
{
    EXPECT_EQ("Tav." + type->file()->name(), type->file()->package() + ".proto");
}

TEST_P(Messages, HaveListsAndOptionalFieldsWithPresenceOnly)
{
    for (int i = 0; i < type->field_count(); ++i) {
        const FieldDescriptor *const field = type->field(i);
        EXPECT_TRUE(field->is_repeated() || (field->is_optional() && field->has_presence())) << field->full_name();
    }
}

TEST_P(Messages, ComeBackWholeFromSerialisation)
{
    const std::unique_ptr<Message> sent = newMessage();
    fill(*sent, 1);
    const std::unique_ptr<Message> received = newMessage();
    ASSERT_TRUE(received->ParseFromString(sent->SerializeAsString()));
    EXPECT_TRUE(google::protobuf::util::MessageDifferencer::Equals(*sent, *received)) << received->DebugString();
    EXPECT_TRUE(received->GetReflection()->GetUnknownFields(*received).empty());
}

INSTANTIATE_TEST_SUITE_P(
    Held, Messages,
    testing::Values("Tav.AccessControl.AccessModeConfig", "Tav.Base.CommandStateAsr", "Tav.Base.PriExceptionAsr",
                    "Tav.DevControl.DevFuncEnableInfo", "Tav.DevControl.DevUsbInfoList",
                    "Tav.HostInfo.SystemFileStateAsr", "Tav.Measure.CompleteMeasureAsr", "Tav.Measure.CredibleMode",
                    "Tav.Measure.DyGetScanStateAsr", "Tav.Measure.DyTimeInterval", "Tav.Measure.ImaContentAsr",
                    "Tav.Measure.ImaCountAsr", "Tav.NetControl.NetControlCountAsr", "Tav.NetControl.NetDeviceInfos",
                    "Tav.NetControl.NetRuleInfoAsr", "Tav.Reinforce.LineCountAsr", "Tav.Reinforce.LineScanContentAsr",
                    "Tav.Reinforce.LineScanItemConfigErr", "Tav.Reinforce.LineScanLevelState",
                    "Tav.Reinforce.LineScanStateAsr", "Tav.Reinforce.OneReforceFinishState",
                    "Tav.Reinforce.OneReforcePolicy", "Tav.Reinforce.OneThreeConfig", "Tav.Reinforce.ReinforceMode",
                    "Tav.Reinforce.SecswitchAsr", "Tav.SystemConfig.CommdOnlineState", "Tav.SystemConfig.LoginCheckAsr",
                    "Tav.SystemConfig.PasswdChangeAsr", "Tav.SystemConfig.SystemServerInfo",
                    "Tav.SystemProtect.ContentCountAsr", "Tav.SystemProtect.FileSmashAsr",
                    "Tav.SystemProtect.KernelBlkProtectContentAsr", "Tav.SystemProtect.SoftUnloadProtectContentAsr"),
    [](const auto &info) {
        std::string name = info.param;
        name.erase(std::remove(name.begin(), name.end(), '.'), name.end());
        return name;
    });

TEST(CommandStateAsr, HasItsFixedFields)
{
    expectField("Tav.Base.CommandStateAsr", 1, "command", FieldDescriptor::TYPE_INT32);
    expectField("Tav.Base.CommandStateAsr", 2, "state", FieldDescriptor::TYPE_INT32);
    expectField("Tav.Base.CommandStateAsr", 3, "message", FieldDescriptor::TYPE_STRING);
}

TEST(CommandStateAsr, AStateOfZeroIsTransmitted)
{
    Tav::Base::CommandStateAsr sent;
    sent.set_state(0);
    Tav::Base::CommandStateAsr received;
    ASSERT_TRUE(received.ParseFromString(sent.SerializeAsString()));
    EXPECT_TRUE(received.has_state());
    EXPECT_FALSE(received.has_command());
}

TEST(NetDeviceInfos, HasItsFixedField)
{
    expectField("Tav.NetControl.NetDeviceInfos", 1, "devices", FieldDescriptor::TYPE_MESSAGE,
                FieldDescriptor::LABEL_REPEATED);
    EXPECT_EQ(messageType("Tav.NetControl.NetDeviceInfos")->field(0)->message_type(),
              messageType("Tav.NetControl.NetDeviceInfo"));
}

TEST(NetDeviceInfo, HasItsFixedFields)
{
    expectField("Tav.NetControl.NetDeviceInfo", 1, "name", FieldDescriptor::TYPE_STRING);
    expectField("Tav.NetControl.NetDeviceInfo", 2, "state", FieldDescriptor::TYPE_INT32);
}

TEST(NetDeviceInfos, RefusesAnIndexOutsideTheList)
{
    Tav::NetControl::NetDeviceInfos infos;
    infos.add_devices();
    for (const int index : {-1, 1, 99}) {
        EXPECT_THROW(infos.mutable_devices(index), google::protobuf::FatalException) << index;
    }
}
