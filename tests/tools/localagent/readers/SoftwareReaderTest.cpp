#include "SoftwareReader.h"

#include "PlantedHost.h"

#include <gtest/gtest.h>

TEST(SoftwareReader, ListsWhatThePackageManagerRefusesToRemove)
{
    const PlantedHost host;
    host.file("/var/lib/dpkg/status",
              "Package: base\nEssential: yes\nStatus: install ok installed\nInstalled-Size: 3\nArchitecture: arm64\n"
              "Version: 1.2\nDescription: the base\n of all\n\n"
              "Package: free\nStatus: install ok installed\n\n"
              "Package: gone\nEssential: yes\nStatus: deinstall ok config-files\n\n"
              "Package: kept\nStatus: hold ok installed\n");
    ReadingNotes notes;
    const auto content = SoftwareReader::readProtectedPackages(host.root(), notes);
    ASSERT_EQ(content.entries_size(), 2);
    EXPECT_EQ(content.mode(), 2);
    EXPECT_EQ(content.entries(0).package(), "base");
    EXPECT_EQ(content.entries(0).version(), "1.2");
    EXPECT_EQ(content.entries(0).summary(), "the base");
    EXPECT_EQ(content.entries(0).size(), 3072U);
    EXPECT_EQ(content.entries(1).package(), "kept");
    EXPECT_TRUE(notes.isEmpty());
}
