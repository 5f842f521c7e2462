#include "ImaReader.h"

#include "PlantedHost.h"

#include <gtest/gtest.h>

TEST(ImaReader, ReadsTheKernelsList)
{
    const PlantedHost host;
    const QByteArray digest(64, 'b');
    host.file("/sys/kernel/security/ima/ascii_runtime_measurements",
              "10 aa ima-ng sha256:" + digest
                  + " boot_aggregate\n"
                    "10 bb ima-ng sha256:"
                  + QByteArray(64, '0')
                  + " /a path/with blanks\n"
                    "11 cc ima "
                  + QByteArray(40, 'd')
                  + " /old\n"
                    "10 dd ima-sig sha256:"
                  + digest
                  + " /signed 0302046730eefd00\n"
                    "broken line\n");
    host.file("/sys/kernel/security/ima/runtime_measurements_count", "4\n");
    host.file("/sys/kernel/security/ima/violations", "1\n");
    host.file("/proc/cmdline", "ima_appraise=log quiet\n");
    ReadingNotes notes;
    const ImaReader::MeasurementList list = ImaReader::readList(host.root(), notes);
    EXPECT_EQ(list.total, 4);
    ASSERT_EQ(list.entries.size(), 4);
    EXPECT_EQ(list.entries.at(0).pcr, 10);
    EXPECT_STREQ(list.entries.at(0).templateHash, "aa");
    EXPECT_STREQ(list.entries.at(0).templateName, "ima-ng");
    EXPECT_STREQ(list.entries.at(0).algorithm, "sha256");
    EXPECT_STREQ(list.entries.at(0).fileDigest, digest.constData());
    EXPECT_STREQ(list.entries.at(0).path, "boot_aggregate");
    EXPECT_EQ(list.entries.at(0).state, 0);
    EXPECT_STREQ(list.entries.at(1).path, "/a path/with blanks");
    EXPECT_EQ(list.entries.at(1).state, 4);
    EXPECT_STREQ(list.entries.at(2).algorithm, "sha1");
    EXPECT_STREQ(list.entries.at(3).path, "/signed");
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.at(0).reason, QStringLiteral("1 line without a measurement"));
    const STImaStateAsr state = ImaReader::readState(host.root(), notes);
    EXPECT_EQ(state.mode, 2);
    EXPECT_EQ(state.state, 1);
    EXPECT_EQ(state.violations, 1);
    EXPECT_EQ(state.hasTpm, 0);
}

TEST(ImaReader, WithoutTheKernelsListThereIsOnlyANote)
{
    const PlantedHost host;
    ReadingNotes notes;
    EXPECT_EQ(ImaReader::readList(host.root(), notes).total, 0);
    EXPECT_EQ(ImaReader::readState(host.root(), notes).state, 0);
    EXPECT_EQ(notes.size(), 2);
}
