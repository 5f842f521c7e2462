#include "PluginHost.h"

#include "ITavAuditMgr.h"

#include <gtest/gtest.h>

TEST(DataPlugin, RegistersItsManagersInTheClientsRegistry)
{
    PluginHost host;
    EXPECT_NE(host.manager<ITavAuditMgr>(), nullptr);
}
