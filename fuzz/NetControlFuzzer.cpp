// Sequences of operations on the network-control manager, each followed by a look at everything it tells.
#include "InputBytes.h"
#include "ITavNetControlMgr.h"
#include "ModelValues.h"
#include "Require.h"
#include "TavPluginHost.h"

#include <optional>
#include <tuple>

namespace
{
struct Row {
    bool checked;
    int index;
    std::string data;

    bool operator==(const Row &other) const
    {
        return std::tie(checked, index, data) == std::tie(other.checked, other.index, other.data);
    }
};

struct Device {
    std::optional<int> state;
    std::string otherFields;

    bool operator==(const Device &other) const
    {
        return state == other.state && otherFields == other.otherFields;
    }
};
}

Row value(const STProtoDataContainer &row)
{
    return {row.isChecked, row.index, row.protoData};
}

Device value(Tav::NetControl::NetDeviceInfo device)
{
    const std::optional<int> state = device.has_state() ? std::optional<int>(device.state()) : std::nullopt;
    device.clear_state();
    return {state, device.SerializePartialAsString()};
}

namespace
{
std::vector<Device> devicesOf(const Tav::NetControl::NetDeviceInfos &message)
{
    std::vector<Device> devices;
    for (const Tav::NetControl::NetDeviceInfo &device : message.devices()) {
        devices.push_back(value(device));
    }
    return devices;
}

/// What the network-control manager must do, told a second time with standard containers and no lock.
struct Model {
    std::string count;
    std::string rules;
    std::vector<Row> rows;
    std::vector<Device> devices;
    std::optional<std::string> state; ///< nothing before the first set

    static void reverse(Device &device)
    {
        device.state = device.state == 1 ? 0 : 1;
    }
};

STProtoDataContainer makeRow(InputBytes &input)
{
    STProtoDataContainer row;
    row.isChecked = input.flag();
    row.index = input.number();
    row.protoData = input.bytes();
    return row;
}

Tav::NetControl::NetDeviceInfos makeDevices(InputBytes &input)
{
    auto devices = input.message<Tav::NetControl::NetDeviceInfos>();
    for (int count = input.below(4); count > 0; --count) {
        *devices.add_devices() = input.message<Tav::NetControl::NetDeviceInfo>();
        if (input.flag()) {
            devices.mutable_devices()->rbegin()->set_state(input.number());
        }
    }
    return devices;
}

/// One operation, on the manager and on the model alike.
void step(InputBytes &input, ITavNetControlMgr &manager, Model &model)
{
    switch (input.below(9)) {
    case 0: {
        const auto count = input.message<Tav::NetControl::NetControlCountAsr>();
        manager.setNetCount(count);
        model.count = value(count);
        break;
    }
    case 1: {
        const auto rows = input.list<QVector<STProtoDataContainer>>([&] { return makeRow(input); });
        manager.setUIData(rows);
        model.rows = values(rows);
        break;
    }
    case 2: {
        const auto state = input.message<Tav::Base::CommandStateAsr>();
        manager.setState(state);
        model.state = value(state);
        break;
    }
    case 3: {
        const auto devices = makeDevices(input);
        manager.setDeviceInfo(devices);
        model.devices = devicesOf(devices);
        break;
    }
    case 4: {
        const auto rules = input.message<Tav::NetControl::NetRuleInfoAsr>();
        manager.setRuleInfo(rules);
        model.rules = value(rules);
        break;
    }
    case 5: {
        // Any position. Pages never pass a negative one; here it must change nothing, as one beyond the end.
        const STProtoDataContainer row = makeRow(input);
        manager.updateUIItem(row);
        if (row.index >= 0 && row.index < static_cast<int>(model.rows.size())) {
            model.rows[static_cast<std::size_t>(row.index)] = value(row);
        }
        break;
    }
    case 6: {
        const bool check = input.flag();
        manager.setAllCheck(check);
        for (Row &row : model.rows) {
            row.checked = check;
        }
        break;
    }
    case 7:
        if (!model.devices.empty()) { // no position is valid in an empty list, and any other ends the process
            const int position = input.below(static_cast<int>(model.devices.size()));
            manager.reverseDeviceState(position);
            Model::reverse(model.devices[static_cast<std::size_t>(position)]);
        }
        break;
    case 8:
        manager.reverseDevicesState();
        for (Device &device : model.devices) {
            Model::reverse(device);
        }
        break;
    }
}

void requireSame(ITavNetControlMgr &manager, const Model &model)
{
    require(value(manager.getNetCount()) == model.count, "the counts");
    require(values(manager.getUIData()) == model.rows, "the rows");
    require(devicesOf(manager.getDeviceInfo()) == model.devices, "the devices");
    require(value(manager.getRuleInfo()) == model.rules, "the rules");
    const Tav::Base::CommandStateAsr state = manager.getState();
    if (model.state) {
        require(value(state) == *model.state, "the command state");
    } else {
        require(state.has_state() && state.state() == 0 && !state.has_command() && !state.has_message(),
                "the command state before the first set");
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    TavPluginHost plugin{TAV_PLUGIN_FILE};
    auto &manager = *plugin.manager<ITavNetControlMgr>();
    require(manager.getObject() != nullptr, "the manager gives itself");
    Model model;
    requireSame(manager, model);
    InputBytes input(data, size);
    for (int steps = 0; steps < 32 && !input.atEnd(); ++steps) {
        const auto rows = manager.getUIData();
        const auto devices = manager.getDeviceInfo();
        const Model before = model;
        step(input, manager, model);
        requireSame(manager, model);
        require(values(rows) == before.rows && devicesOf(devices) == before.devices,
                "copies handed out earlier do not change");
    }
    return 0;
}
