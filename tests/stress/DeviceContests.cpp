#include "Contests.h"

#include "SampleValue.h"

#include "ITavNetControlMgr.h"

#include <algorithm>

namespace
{
/// Everything but the states, which are being reversed.
std::string contentButStates(Tav::NetControl::NetDeviceInfos info)
{
    for (Tav::NetControl::NetDeviceInfo &device : *info.mutable_devices()) {
        device.clear_state();
    }
    return SampleValue::content(info);
}
}

std::vector<Contest> Contests::devices(TavPluginHost &host)
{
    using Infos = Tav::NetControl::NetDeviceInfos;
    auto *const manager = host.manager<ITavNetControlMgr>();
    std::vector<Infos> samples;
    std::vector<std::string> contents;
    for (int seed = 1; seed <= 4; ++seed) {
        samples.push_back(SampleValue::sample<Infos>(seed));
        contents.push_back(contentButStates(samples.back()));
    }
    manager->setDeviceInfo(samples.front());
    const int deviceCount = samples.front().devices_size();

    const auto set = [manager, samples](int seed) {
        manager->setDeviceInfo(samples[seed % samples.size()]);
        return true;
    };
    const auto get = [manager, contents](int) {
        const std::string content = contentButStates(manager->getDeviceInfo());
        return std::find(contents.begin(), contents.end(), content) != contents.end();
    };
    const auto reverseOne = [manager, deviceCount](int seed) {
        manager->reverseDeviceState(seed % deviceCount);
        return true;
    };
    const auto reverseAll = [manager](int) {
        manager->reverseDevicesState();
        return true;
    };
    return {{"ITavNetControlMgr DeviceInfo",
             {{"setDeviceInfo", set},
              {"getDeviceInfo", get},
              {"reverseDeviceState", reverseOne},
              {"reverseDevicesState", reverseAll}}}};
}
