#include "Golden.h"
#include "ITavDataPlugin.h"
#include "Slots.h"
#include "TavOperations.h"

#include <gtest/gtest.h>

TEST(InterfaceSlots, StandWhereCompiledClientsCallThem)
{
    std::vector<SlotTable> interfaces
        = {{"ITavDataPlugin", slotCount<ITavDataPlugin>(), {slot("registerObj", &ITavDataPlugin::registerObj)}}};
    TavOperations::Interfaces::forEach([&interfaces](auto tag) {
        using Interface = typename decltype(tag)::type;
        SlotTable table{qobject_interface_iid<Interface *>(), slotCount<Interface>(), {}};
        TavOperations::forEachOperation<Interface>([&table](const auto &operation) {
            table.operations.push_back(slot(operation.name.data(), operation.member));
        });
        interfaces.push_back(table);
    });
    EXPECT_EQ(slotCount<ITavDataPlugin>(), 1);
    EXPECT_EQ(described(interfaces), golden("slots.txt"));
}
