// Sequences of operations on the system-protection manager, each followed by a look at everything it tells.
#include "InputBytes.h"
#include "ITavProtectMgr.h"
#include "ModelValues.h"
#include "Require.h"
#include "TavPluginHost.h"

#include <functional>
#include <tuple>

namespace
{
struct Row {
    bool checked;
    std::u16string title;
    std::u16string key;
    std::u16string detail;
    bool status;

    bool operator==(const Row &other) const
    {
        return std::tie(checked, title, key, detail, status)
            == std::tie(other.checked, other.title, other.key, other.detail, other.status);
    }
};
}

Row value(const STSystemProUIData &row)
{
    // Copied first: the texts of a packed row stand misaligned.
    const QString title = row.title;
    const QString key = row.itemKey;
    const QString detail = row.detail;
    return {row.isChecked, value(title), value(key), value(detail), row.status};
}

namespace
{
STSystemProUIData makeRow(InputBytes &input)
{
    STSystemProUIData row;
    row.isChecked = input.flag();
    row.title = QString::fromStdU16String(input.text());
    row.itemKey = QString::fromStdU16String(input.text());
    row.detail = QString::fromStdU16String(input.text());
    row.status = input.flag();
    return row;
}

/// A value that is only held: as bytes what the manager tells, and how to set it to something from the input.
struct Held {
    const char *name;
    std::function<std::string()> get;
    std::function<std::string(InputBytes &)> set; ///< returns the bytes of what was set
    std::string initial;
};

/// The bytes of a whole list of records, which are all of one size.
template<class Record>
std::string listValue(const QVector<Record> &list)
{
    std::string all;
    for (const Record &record : list) {
        all += value(record);
    }
    return all;
}

/// The values that the manager only holds, in the order of its interface.
std::vector<Held> heldValues(ITavProtectMgr &manager)
{
    using Mgr = ITavProtectMgr;
    const auto record = [&manager](const char *name, auto getter, auto setter, auto initial) {
        return Held{name, [=, &manager] { return value((manager.*getter)()); },
                    [=, &manager](InputBytes &input) {
                        auto given = initial;
                        if (input.flag()) {
                            given = input.record<decltype(initial)>();
                        }
                        (manager.*setter)(given);
                        return value(given);
                    },
                    value(initial)};
    };
    const auto list = [&manager](const char *name, auto getter, auto setter, auto empty) {
        using List = decltype(empty);
        return Held{name,
                    [=, &manager] { return listValue((manager.*getter)()); },
                    [=, &manager](InputBytes &input) {
                        const List given
                            = input.list<List>([&input] { return input.record<typename List::value_type>(); });
                        (manager.*setter)(given);
                        return listValue(given);
                    },
                    {}};
    };
    const auto message = [&manager](const char *name, auto getter, auto setter, auto empty) {
        return Held{name,
                    [=, &manager] { return value((manager.*getter)()); },
                    [=, &manager](InputBytes &input) {
                        const auto given = input.message<decltype(empty)>();
                        (manager.*setter)(given);
                        return value(given);
                    },
                    {}};
    };
    namespace Messages = Tav::SystemProtect;
    const STStateAsr unknown{28, 0};
    const STProtectCountAsr none{0};
    return {
        record("self state", &Mgr::getSelfState, &Mgr::setSelfState, unknown),
        record("kernel count", &Mgr::getKernelCount, &Mgr::setKernelCount, none),
        list("kernel content", &Mgr::getKernelContent, &Mgr::setKernelContent, QVector<STKernelContentAsr>()),
        record("process count", &Mgr::getProCount, &Mgr::setProCount, none),
        list("process content", &Mgr::getProContentList, &Mgr::setProContentList, QVector<STProProtectContentAsr>()),
        record("directory count", &Mgr::getDirCount, &Mgr::setDirCount, none),
        list("directory content", &Mgr::getDirContent, &Mgr::setDirContent, QVector<STDirProtectContentAsr>()),
        record("file count", &Mgr::getFileCount, &Mgr::setFileCount, none),
        list("file content", &Mgr::getFileContent, &Mgr::setFileContent, QVector<STFileProtectContentAsr>()),
        record("kernel state", &Mgr::getKernelState, &Mgr::setKernelState, unknown),
        record("process state", &Mgr::getProState, &Mgr::setProState, unknown),
        record("directory state", &Mgr::getDirState, &Mgr::setDirState, unknown),
        record("file state", &Mgr::getFileState, &Mgr::setFileState, unknown),
        message("object count", &Mgr::getProtoCount, &Mgr::setProtoCount, Messages::ContentCountAsr()),
        message("blocked modules", &Mgr::getKernelBlkContent, &Mgr::setKernelBlkContent,
                Messages::KernelBlkProtectContentAsr()),
        record("block mode", &Mgr::getKernelBlkMode, &Mgr::setKernelBlkMode, unknown),
        message("file smashing", &Mgr::getFileSmash, &Mgr::setFileSmash, Messages::FileSmashAsr()),
        message("software count", &Mgr::getSoftUnloadCount, &Mgr::setSoftUnloadCount, Messages::ContentCountAsr()),
        message("software content", &Mgr::getSoftUnloadContent, &Mgr::setSoftUnloadContent,
                Messages::SoftUnloadProtectContentAsr()),
        record("software mode", &Mgr::getSoftUnloadMode, &Mgr::setSoftUnloadMode, unknown),
    };
}

/// What the manager must tell: standard containers, and no lock.
struct Model {
    std::vector<std::string> held;
    std::vector<Row> rows;

    void updateRow(const Row &given)
    {
        for (Row &row : rows) {
            if (row.key == given.key) {
                row = given;
                return;
            }
        }
    }
};

/// One operation, on the manager and on the model alike.
void step(InputBytes &input, ITavProtectMgr &manager, const std::vector<Held> &held, Model &model)
{
    switch (input.below(6)) {
    case 0: {
        const auto rows = input.list<QVector<STSystemProUIData>>([&] { return makeRow(input); });
        manager.setProtectUIData(rows);
        model.rows = values(rows);
        break;
    }
    case 1: {
        const bool check = input.flag();
        manager.setUIAllCheck(check);
        for (Row &row : model.rows) {
            row.checked = check;
        }
        break;
    }
    case 2:
    case 3: {
        const STSystemProUIData row = makeRow(input);
        manager.updateUIItem(row);
        model.updateRow(value(row));
        break;
    }
    default: {
        const auto which = static_cast<std::size_t>(input.below(static_cast<int>(held.size())));
        model.held[which] = held[which].set(input);
        break;
    }
    }
}

void requireSame(ITavProtectMgr &manager, const std::vector<Held> &held, const Model &model)
{
    for (std::size_t i = 0; i < held.size(); ++i) {
        require(held[i].get() == model.held[i], held[i].name);
    }
    require(values(manager.getProtectUIData()) == model.rows, "the rows");
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    TavPluginHost plugin{TAV_PLUGIN_FILE};
    auto &manager = *plugin.manager<ITavProtectMgr>();
    require(manager.getObject() != nullptr, "the manager gives itself");
    const std::vector<Held> held = heldValues(manager);
    Model model;
    for (const Held &value : held) {
        model.held.push_back(value.initial);
    }
    requireSame(manager, held, model);
    InputBytes input(data, size);
    for (int steps = 0; steps < 32 && !input.atEnd(); ++steps) {
        const auto rows = manager.getProtectUIData();
        const std::vector<Row> rowsBefore = model.rows;
        step(input, manager, held, model);
        requireSame(manager, held, model);
        require(values(rows) == rowsBefore, "copies handed out earlier do not change");
    }
    return 0;
}
