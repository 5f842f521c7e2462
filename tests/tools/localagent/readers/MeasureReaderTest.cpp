#include "MeasureReader.h"

#include "NoteSources.h"
#include "PlantedHost.h"
#include "SoftwareReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

TEST(MeasureReader, JudgesProgramsByTheirPackages)
{
    const PlantedHost host;
    host.file("/usr/bin/bash", "abc");
    host.file("/usr/bin/ls", "changed");
    host.file("/usr/bin/ssh", "of nobody");
    host.file("/usr/bin/dash", "diverted");
    // The digest of "abc"; one package still names the place before /usr was merged.
    const QByteArray abc = "900150983cd24fb0d6963f7d28e17f72";
    host.file("/var/lib/dpkg/info/shell.md5sums",
              abc + "  bin/bash\n" + abc + "  usr/bin/ls\n" + abc + "  usr/bin/su\n");
    host.file("/var/lib/dpkg/info/other.md5sums", abc + "  usr/bin/dash\n");
    host.file("/var/lib/dpkg/diversions", "/usr/bin/dash\n/usr/bin/dash.real\nother\n");

    ReadingNotes notes;
    const auto digests = SoftwareReader::readPackageDigests(host.root(), MeasureReader::programs(), notes);
    EXPECT_TRUE(notes.isEmpty());
    const QVector<QByteArray> paths = MeasureReader::presentPrograms(host.root(), digests);
    EXPECT_THAT(paths,
                ElementsAre(QByteArray("/usr/bin/bash"), QByteArray("/usr/bin/dash"), QByteArray("/usr/bin/ls"),
                            QByteArray("/usr/bin/ssh"), QByteArray("/usr/bin/su")));
    Tav::Measure::ImaContentAsr list;
    for (const QByteArray &path : paths) {
        *list.add_entries() = MeasureReader::measure(host.root(), path, digests, 7, notes);
    }
    EXPECT_EQ(list.entries(0).state(), 1);
    EXPECT_EQ(list.entries(0).algorithm(), "md5");
    EXPECT_EQ(list.entries(0).file_digest(), abc.toStdString());
    EXPECT_EQ(list.entries(0).expected_digest(), abc.toStdString());
    EXPECT_EQ(list.entries(1).state(), 3);
    EXPECT_EQ(list.entries(1).algorithm(), "sha256");
    EXPECT_FALSE(list.entries(1).has_expected_digest());
    EXPECT_EQ(list.entries(2).state(), 2);
    EXPECT_EQ(list.entries(2).algorithm(), "md5");
    EXPECT_EQ(list.entries(2).expected_digest(), abc.toStdString());
    EXPECT_EQ(list.entries(3).state(), 3);
    EXPECT_FALSE(list.entries(4).has_file_digest());
    EXPECT_TRUE(notesOn(notes, "/usr/bin/su"));
    const Tav::Measure::CompleteMeasureAsr result = MeasureReader::resultOf(host.root(), list);
    EXPECT_EQ(result.state(), 3);
    EXPECT_EQ(result.measured_count(), 4);
    EXPECT_EQ(result.changed_count(), 1);
    EXPECT_EQ(result.missing_count(), 1);
    EXPECT_EQ(result.added_count(), 2);
    EXPECT_EQ(result.items_size(), 4);
    EXPECT_EQ(MeasureReader::resultOf(host.root(), {}).state(), 4);
}
