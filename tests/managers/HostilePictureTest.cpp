// A directory of pictures, as somebody would fill it who wants the client to crash, to hang or to use up its memory.
#include "ChildProcess.h"
#include "Deadline.h"
#include "ITavPicResourceMgr.h"
#include "PngBytes.h"
#include "ProofSize.h"
#include "SpecialFile.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <thread>

namespace
{
class HostilePicture : public testing::Test
{
protected:
    HostilePicture()
    {
        QFile::setPermissions(m_root.path(), QFile::Permissions(0x7755)); // for the tests that give up their rights
        EXPECT_TRUE(QDir().mkpath(pages()));
    }

    /// The directory that is appended.
    QString pages() const
    {
        return m_root.filePath(QStringLiteral("pages"));
    }

    QString inPages(const char *name) const
    {
        return pages() + QLatin1Char('/') + QString::fromUtf8(name);
    }

    void append()
    {
        pictures.appendPicResourcePath(pages());
    }

    std::shared_ptr<QImage> find(const char *name, const char *directory = "pages")
    {
        return pictures.getImageRef(QString::fromUtf8(directory), QString::fromUtf8(name));
    }

    /// Expects an entry without a picture.
    void expectNull(const char *name)
    {
        const auto image = find(name);
        ASSERT_TRUE(image) << name;
        EXPECT_TRUE(image->isNull()) << name;
    }

    /// Expects an entry with a picture.
    void expectPicture(const char *name, const char *directory = "pages")
    {
        const auto image = find(name, directory);
        ASSERT_TRUE(image) << directory << '/' << name;
        EXPECT_FALSE(image->isNull()) << directory << '/' << name;
    }

    /// Writes the file as x.png and appends it in a child process; prints what that took, and returns it.
    ChildOutcome appendInChild(const char *what, const QByteArray &file, const std::function<void()> &expectations)
    {
        writeFile(inPages("x.png"), file);
        const ChildOutcome outcome = runInChild([&] {
            append();
            expectations();
        });
        EXPECT_TRUE(outcome.passed) << what;
        std::printf("%s: file %.2f MiB, peak %.0f MiB, %.2f s\n", what, file.size() / 1024.0 / 1024, outcome.peakMiB,
                    outcome.seconds);
        return outcome;
    }

    const Deadline m_deadline;
    const QTemporaryDir m_root;
    TavPluginHost m_host{TAV_PLUGIN_FILE};
    ITavPicResourceMgr &pictures = *m_host.manager<ITavPicResourceMgr>();
};
}

TEST_F(HostilePicture, TenThousandFilesHaveTheirEntries)
{
    const QByteArray picture = PngBytes::black(1);
    for (int i = 0; i < 10000; ++i) {
        writeFile(inPages(qPrintable(QStringLiteral("p%1.png").arg(i))), i % 100 == 0 ? QByteArray() : picture);
    }
    append();
    for (int i = 0; i < 10000; ++i) {
        const auto image = find(qPrintable(QStringLiteral("p%1").arg(i)));
        ASSERT_TRUE(image) << i;
        EXPECT_EQ(image->isNull(), i % 100 == 0) << i;
    }
}

TEST_F(HostilePicture, WhatIsNoRegularFileIsNotListed)
{
    ASSERT_TRUE(SpecialFile::makePipe(inPages("pipe.png")));
    ASSERT_TRUE(SpecialFile::makeSocket(inPages("socket.png")));
    const bool hasDevice = SpecialFile::makeEndlessDevice(inPages("device.png"));
    EXPECT_EQ(hasDevice, geteuid() == 0);
    writeFile(inPages("x.png"), PngBytes::black(1));
    append();
    for (const char *const name : {"pipe", "socket", "device"}) {
        EXPECT_FALSE(find(name)) << name;
    }
    expectPicture("x");
}

TEST_F(HostilePicture, LinksToWhatIsNoRegularFileAreNotOpened)
{
    ASSERT_TRUE(SpecialFile::makePipe(m_root.filePath(QStringLiteral("pipe"))));
    ASSERT_TRUE(SpecialFile::makeSocket(m_root.filePath(QStringLiteral("socket"))));
    SpecialFile::makeLink(m_root.filePath(QStringLiteral("pipe")), inPages("pipe.png"));
    SpecialFile::makeLink(m_root.filePath(QStringLiteral("socket")), inPages("socket.png"));
    SpecialFile::makeLink(QStringLiteral("/dev/zero"), inPages("device.png"));
    append();
    for (const char *const name : {"pipe", "socket", "device"}) {
        expectNull(name);
    }
}

TEST_F(HostilePicture, FilesThatMayNotBeReadHaveNullPictures)
{
    writeFile(inPages("x.png"), PngBytes::black(1));
    writeFile(inPages("y.png"), PngBytes::black(1));
    EXPECT_TRUE(QFile::setPermissions(inPages("x.png"), QFile::Permissions()));
    const ChildOutcome outcome = runInChild([&] {
        dropRights();
        append();
        expectNull("x");
        expectPicture("y");
    });
    EXPECT_TRUE(outcome.passed);
}

TEST_F(HostilePicture, DirectoriesThatMayNotBeReadAddNothing)
{
    writeFile(inPages("closed.png/x.png"), PngBytes::black(1));
    writeFile(inPages("y.png"), PngBytes::black(1));
    EXPECT_TRUE(QFile::setPermissions(inPages("closed.png"), QFile::Permissions()));
    const ChildOutcome outcome = runInChild([&] {
        dropRights();
        append();
        EXPECT_FALSE(find("x", "closed.png"));
        expectPicture("y");
    });
    EXPECT_TRUE(outcome.passed);
    QFile::setPermissions(inPages("closed.png"), QFile::Permissions(0x7755));
}

TEST_F(HostilePicture, FilesMayComeAndGoWhileTheyAreLoaded)
{
    const QByteArray picture = PngBytes::black(7);
    writeFile(inPages("stays.png"), picture);
    std::atomic<bool> stop{false};
    std::thread writer([&] {
        const QString other = m_root.filePath(QStringLiteral("other"));
        const QString sub = inPages("sub.png");
        const QByteArray from = QFile::encodeName(other);
        const QByteArray to = QFile::encodeName(inPages("x.png"));
        for (int turn = 0; !stop; ++turn) {
            switch (turn % 4) {
            case 0: // in place, seen in pieces
                writeFile(inPages("x.png"), picture);
                break;
            case 1: // a directory that comes and goes with its file
                writeFile(sub + QStringLiteral("/x.png"), picture);
                QDir(sub).removeRecursively();
                break;
            case 2:
                QFile::remove(inPages("x.png"));
                break;
            case 3: // whole at once
                writeFile(other, picture);
                EXPECT_EQ(std::rename(from.constData(), to.constData()), 0);
                break;
            }
        }
    });
    int loaded = 0;
    for (const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(proofSize(1, 3));
         std::chrono::steady_clock::now() < end;) {
        append();
        expectPicture("stays");
        if (const auto image = find("x"); image && !image->isNull()) {
            EXPECT_EQ(image->size(), QSize(7, 7));
            ++loaded;
        }
    }
    stop = true;
    writer.join();
    EXPECT_GT(loaded, 0);
}

TEST_F(HostilePicture, LinksToTheirOwnDirectoryGiveTheKeysOfOnePass)
{
    writeFile(inPages("x.png"), PngBytes::black(1));
    for (int i = 0; i < 10; ++i) {
        SpecialFile::makeLink(i % 2 == 0 ? QStringLiteral(".") : pages(),
                              inPages(qPrintable(QStringLiteral("loop%1.png").arg(i))));
    }
    append();
    expectPicture("x");
    for (int i = 0; i < 10; ++i) {
        expectPicture("x", qPrintable(QStringLiteral("loop%1.png").arg(i)));
        EXPECT_FALSE(find(qPrintable(QStringLiteral("loop%1").arg(i))));
    }
}

TEST_F(HostilePicture, DirectoriesThatLinkToEachOtherEnd)
{
    constexpr int count = 8;
    const auto name = [](int i) { return QStringLiteral("d%1.png").arg(i); };
    for (int i = 0; i < count; ++i) {
        writeFile(pages() + QLatin1Char('/') + name(i) + QStringLiteral("/x.png"), PngBytes::black(1));
        for (int j = 0; j < count; ++j) {
            SpecialFile::makeLink(QStringLiteral("../") + name(j),
                                  QStringLiteral("%1/%2/to%3.png").arg(pages(), name(i)).arg(j));
        }
    }
    append();
    for (int i = 0; i < count; ++i) {
        expectPicture("x", qPrintable(name(i)));
        expectPicture("x", qPrintable(QStringLiteral("to%1.png").arg(i)));
    }
}

TEST_F(HostilePicture, LinksAreFollowedAsFarAsTheKernelDoes)
{
    const QString target = m_root.filePath(QStringLiteral("target"));
    writeFile(target, PngBytes::black(1));
    SpecialFile::makeChainOfLinks(target, inPages("near.png"), 30);
    SpecialFile::makeChainOfLinks(target, inPages("far.png"), 50);
    SpecialFile::makeLink(inPages("itself.png"), inPages("itself.png"));
    append();
    expectPicture("near");
    EXPECT_FALSE(find("far"));
    EXPECT_FALSE(find("itself"));
}

TEST_F(HostilePicture, NamesMayHoldAnyByte)
{
    const QByteArray picture = PngBytes::black(1);
    for (const char *const name : {"new\nline.png", "tab\t.png", " .png", "\"'`$(x)*?[.png", "\xe4\xb8\xad.png",
                                   "\xf0\x9f\x98\x80.png", "\\.png", "%n%s.png"}) {
        writeFile(inPages(name), picture);
    }
    // No text in any encoding that file names have: Qt's listing leaves it out.
    const QByteArray invalid = QFile::encodeName(pages()) + "/\xff\xc0.png";
    std::FILE *const file = std::fopen(invalid.constData(), "w");
    ASSERT_TRUE(file);
    std::fclose(file);
    writeFile(inPages((std::string(251, 'n') + ".png").c_str()), picture);
    append();
    for (const char *const name :
         {"new\nline", "tab\t", " ", "\"'`$(x)*?[", "\xe4\xb8\xad", "\xf0\x9f\x98\x80", "\\", "%n%s"}) {
        expectPicture(name);
    }
    expectPicture(std::string(251, 'n').c_str());
    EXPECT_FALSE(find(""));
    EXPECT_FALSE(find("../pages/x"));
    EXPECT_EQ(unlink(invalid.constData()), 0); // which Qt, as it does not list it, would leave behind
}

TEST_F(HostilePicture, TruncatedPicturesAreNullOrWhole)
{
    const QByteArray whole = PngBytes::black(40);
    int shown = 0;
    for (int size = 0; size <= whole.size(); ++size) {
        writeFile(inPages("x.png"), whole.left(size));
        append();
        const auto image = find("x");
        ASSERT_TRUE(image) << size;
        if (!image->isNull()) {
            EXPECT_EQ(image->size(), QSize(40, 40)) << size;
            ++shown;
        }
    }
    EXPECT_GE(shown, 1);
    EXPECT_LT(shown, whole.size() / 2);
}

TEST_F(HostilePicture, AnyByteMayBeWrong)
{
    const QByteArray whole = PngBytes::black(40);
    const ChildOutcome outcome = runInChild([&] {
        if (!memoryIsInstrumented) {
            limitMemory(2048); // one wrong byte makes a size of thousands of millions
        }
        for (int i = 0; i < whole.size(); ++i) {
            for (const int change : {0x01, 0x80, 0xff}) {
                if (memoryIsInstrumented && i >= 16 && i < 24) {
                    continue; // the size
                }
                QByteArray wrong = whole;
                wrong[i] = static_cast<char>(wrong.at(i) ^ change);
                writeFile(inPages("x.png"), wrong);
                append();
                ASSERT_TRUE(find("x")) << i;
            }
        }
    });
    EXPECT_TRUE(outcome.passed);
}

TEST_F(HostilePicture, ThePictureThatIsDeclaredIsTheMemoryThatIsTaken)
{
    // 144 million pixels of a byte in less than a megabyte: nothing but the picture itself.
    const ChildOutcome outcome = appendInChild("12000 x 12000 grey", PngBytes::black(12000),
                                               [&] { EXPECT_EQ(find("x")->size(), QSize(12000, 12000)); });
    if (!memoryIsInstrumented) {
        EXPECT_LT(outcome.peakMiB, 1.25 * 12000 * 12000 / 1024 / 1024);
    }
}

TEST_F(HostilePicture, PicturesTooLargeForTheMemoryAreNull)
{
    if (memoryIsInstrumented) {
        GTEST_SKIP() << "an instrumented process cannot have its memory limited";
    }
    for (const quint32 side : {30000u, 100000u, 1000000u, 0x7fffffffu}) {
        const QByteArray file = PngBytes::picture(side, side, PngBytes::rgba, PngBytes::zeros(1000000));
        writeFile(inPages("x.png"), file);
        const ChildOutcome outcome = runInChild([&] {
            limitMemory(2048);
            append();
            expectNull("x");
        });
        EXPECT_TRUE(outcome.passed) << side;
        EXPECT_LT(outcome.peakMiB, 64) << side;
    }
}

TEST_F(HostilePicture, TextsThatUnpackToMuchTakeLittle)
{
    const QByteArray much = PngBytes::zeros(200 * 1000 * 1000);
    const QByteArray pixels = PngBytes::zeros(2);
    for (const auto &[what, bomb] : {
             std::pair("zTXt", PngBytes::chunk("zTXt", QByteArray("Comment\0\0", 9) + much)),
             std::pair("iTXt", PngBytes::chunk("iTXt", QByteArray("Comment\0\1\0\0\0", 12) + much)),
             std::pair("iCCP", PngBytes::chunk("iCCP", QByteArray("profile\0\0", 9) + much)),
         }) {
        const ChildOutcome outcome
            = appendInChild(what, PngBytes::picture(1, 1, PngBytes::grey, pixels, bomb), [&] { expectPicture("x"); });
        if (!memoryIsInstrumented) {
            EXPECT_LT(outcome.peakMiB, 64) << what;
        }
    }
}
