// Sequences of operations on the access-control manager, each followed by a look at everything it tells.
#include "AccessControlModel.h"
#include "InputBytes.h"
#include "Require.h"
#include "TavPluginHost.h"

namespace
{
QString toQString(const std::u16string &text)
{
    return QString::fromStdU16String(text);
}

STPriAddUIData makeUser(InputBytes &input)
{
    STPriAddUIData user;
    user.checked = input.flag();
    user.userName = toQString(input.text());
    user.userNumber = input.number();
    user.userText = toQString(input.text());
    return user;
}

STAccessSetUIData makeLevel(InputBytes &input)
{
    STAccessSetUIData level;
    level.level = input.number();
    level.labels = input.list<QVector<QString>>([&] { return toQString(input.text()); });
    level.extraFlag = input.flag();
    level.checked = input.flag();
    return level;
}

STObjectAddUIData makeFile(InputBytes &input)
{
    STObjectAddUIData file;
    file.checked = input.flag();
    file.fileName = toQString(input.text());
    file.filePath = toQString(input.text());
    return file;
}

/// A detail with one of a few names; or one that fills its buffer to the last byte, as no backend should send it.
STPriDetailAsr makeUserDetail(InputBytes &input)
{
    static const char *const names[] = {"", "a", "A", "root", "\xe4\xb8\xad\xe6\x96\x87", "\xff\xc0"};
    auto detail = input.record<STPriDetailAsr>();
    const int choice = input.below(7);
    if (choice < 6) {
        qstrncpy(detail.userName, names[choice], sizeof(detail.userName));
    }
    return detail;
}

template<class Record>
QVector<Record> makeRecords(InputBytes &input)
{
    return input.list<QVector<Record>>([&] { return input.record<Record>(); });
}

/// One operation, on the manager and on the model alike.
void step(InputBytes &input, ITavAccessControlMgr &manager, AccessControlModel &model)
{
    switch (input.below(16)) {
    case 0: {
        const auto users = makeRecords<STLookUsersAsr>(input);
        manager.updateSystemUsers(users);
        model.systemUsers = values(users);
        break;
    }
    case 1: {
        const auto users = input.list<QVector<STPriAddUIData>>([&] { return makeUser(input); });
        manager.updateUIUsers(users);
        model.users = values(users);
        break;
    }
    case 2: {
        const STPriAddUIData user = makeUser(input);
        manager.updateUIUser(user);
        model.updateUser(value(user));
        break;
    }
    case 3:
        manager.uncheckAllUIUsers();
        for (auto &user : model.users) {
            user.checked = false;
        }
        break;
    case 4: {
        const int key = input.number();
        auto details = input.list<QVector<STPriDetailAsr>>([&] { return makeUserDetail(input); });
        const auto given = values(details);
        manager.updateUserDetail(key, details);
        require(values(details) == given, "updateUserDetail leaves its argument");
        model.userDetails[key] = given;
        break;
    }
    case 5: {
        const auto levels = input.list<QVector<STAccessSetUIData>>([&] { return makeLevel(input); });
        manager.updateUIPriData(levels);
        model.principalLevels = values(levels);
        break;
    }
    case 6: {
        const STAccessSetUIData level = makeLevel(input);
        manager.updateUIPriData(level);
        AccessControlModel::updateLevel(model.principalLevels, value(level));
        break;
    }
    case 7: {
        const int key = input.number();
        const bool flag = input.flag();
        const auto details = makeRecords<STObjectDetailAsr>(input);
        manager.updateObjectDetail(key, flag, details);
        model.objectDetails[flag][key] = values(details);
        break;
    }
    case 8: {
        const auto levels = input.list<QVector<STAccessSetUIData>>([&] { return makeLevel(input); });
        manager.updateUIObjectData(levels);
        model.objectLevels = values(levels);
        break;
    }
    case 9: {
        const STAccessSetUIData level = makeLevel(input);
        manager.updateUIObjectData(level);
        AccessControlModel::updateLevel(model.objectLevels, value(level));
        break;
    }
    case 10: {
        const auto files = input.list<QVector<STObjectAddUIData>>([&] { return makeFile(input); });
        manager.updateUIFiles(files);
        model.files = values(files);
        break;
    }
    case 11: {
        STObjectAddUIData file = makeFile(input);
        const auto given = value(file);
        manager.updateUIFile(file);
        require(value(file) == given, "updateUIFile leaves its argument");
        model.updateFile(given);
        break;
    }
    case 12: {
        const int count = input.number();
        const bool flag = input.flag();
        const int key = input.number();
        manager.setObjectCount(count, flag, key);
        model.objectCounts[flag][key] = count;
        break;
    }
    case 13: {
        const auto config = input.message<Tav::AccessControl::AccessModeConfig>();
        manager.setModeConfig(config);
        model.modeConfig = value(config);
        break;
    }
    case 14: {
        const auto state = input.message<Tav::Base::CommandStateAsr>();
        manager.setState(state);
        model.state = value(state);
        break;
    }
    case 15:
        manager.clearCacheData();
        model.clearCache();
        break;
    }
}

/// Looks at tables by keys too: those of the model, and some that may be nowhere, which must not be seen afterwards.
void requireSameByKey(ITavAccessControlMgr &manager, const AccessControlModel &model)
{
    for (int key = -3; key <= 6; ++key) {
        require(values(manager.getUserDetail(key)) == valueOr(model.userDetails, key), "principal details of a key");
    }
    for (const auto &[key, details] : model.userDetails) {
        require(values(manager.getUserDetail(key)) == details, "principal details of a key that was set");
    }
    for (const bool flag : {false, true}) {
        for (int key = -3; key <= 6; ++key) {
            require(values(manager.getObjectDetail(key, flag)) == valueOr(model.objectDetails[flag], key),
                    "object details of a key");
            require(manager.getObjectCount(flag, key) == valueOr(model.objectCounts[flag], key), "count of a key");
        }
        for (const auto &[key, details] : model.objectDetails[flag]) {
            require(values(manager.getObjectDetail(key, flag)) == details, "object details of a key that was set");
        }
        for (const auto &[key, count] : model.objectCounts[flag]) {
            require(manager.getObjectCount(flag, key) == count, "count of a key that was set");
        }
    }
}

void requireSame(ITavAccessControlMgr &manager, const AccessControlModel &model)
{
    require(values(manager.getSystemUsers()) == model.systemUsers, "the host's users");
    require(values(manager.getUIUsers()) == model.users, "the principals");
    require(values(manager.getUIPriData()) == model.principalLevels, "the principal levels");
    require(values(manager.getUIObjectData()) == model.objectLevels, "the object levels");
    require(values(manager.getUIFiles()) == model.files, "the files");
    require(manager.getCheckPriLevel() == AccessControlModel::checkedLevel(model.principalLevels),
            "the checked principal level");
    require(manager.getCheckObjectLevel() == AccessControlModel::checkedLevel(model.objectLevels),
            "the checked object level");
    require(values(manager.getUserDetail()) == model.allUserDetails(), "all principal details");
    require(values(manager.getObjectDetail()) == model.allObjectDetails(), "all object details");
    for (const char *const name : {"", "a", "A", "b", "root", "\xe4\xb8\xad\xe6\x96\x87"}) {
        require(manager.hasUserDetail(QString::fromUtf8(name)) == model.hasUserDetail(name), "whether a user is named");
    }
    require(value(manager.getModeConfig()) == model.modeConfig, "the mode configuration");
    require(value(manager.getState()) == model.state, "the command state");
    requireSameByKey(manager, model);
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    TavPluginHost plugin{TAV_PLUGIN_FILE};
    auto &manager = *plugin.manager<ITavAccessControlMgr>();
    require(manager.getObject() != nullptr, "the manager gives itself");
    AccessControlModel model;
    requireSame(manager, model);
    InputBytes input(data, size);
    for (int steps = 0; steps < 32 && !input.atEnd(); ++steps) {
        const auto users = manager.getUIUsers();
        const auto files = manager.getUIFiles();
        const auto levels = manager.getUIPriData();
        const AccessControlModel before = model;
        step(input, manager, model);
        requireSame(manager, model);
        require(values(users) == before.users && values(files) == before.files
                    && values(levels) == before.principalLevels,
                "copies handed out earlier do not change");
    }
    return 0;
}
