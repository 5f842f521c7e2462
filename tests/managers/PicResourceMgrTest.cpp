#include "ChildProcess.h"
#include "GlobalStateGuard.h"
#include "ITavPicResourceMgr.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <sys/stat.h>
#include <thread>

namespace
{
constexpr QRgb red = 0xffff0000;
constexpr QRgb green = 0xff00ff00;
constexpr QRgb blue = 0xff0000ff;

/// @brief Goes back to the working directory of before when it ends.
class WorkingDirectory
{
public:
    explicit WorkingDirectory(const QString &path)
    {
        EXPECT_TRUE(QDir::setCurrent(path));
    }

    Q_DISABLE_COPY(WorkingDirectory)

    ~WorkingDirectory()
    {
        QDir::setCurrent(m_before);
    }

private:
    const QString m_before = QDir::currentPath();
};

class PicResourceMgr : public testing::Test
{
protected:
    QString path(const QString &relative) const
    {
        return root.filePath(relative);
    }

    QString path(const char *relative) const
    {
        return path(QString::fromUtf8(relative));
    }

    QString makeDirectory(const char *relative) const
    {
        EXPECT_TRUE(QDir().mkpath(path(relative)));
        return path(relative);
    }

    /// Writes a picture of one colour, as PNG whatever the file is called.
    void writePicture(const QString &relative, QRgb colour, const char *format = "PNG") const
    {
        EXPECT_TRUE(QDir().mkpath(QFileInfo(path(relative)).path()));
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(path(relative), format)) << qPrintable(relative);
    }

    void writePicture(const char *relative, QRgb colour, const char *format = "PNG") const
    {
        writePicture(QString::fromUtf8(relative), colour, format);
    }

    void link(const QString &target, const char *relative) const
    {
        EXPECT_TRUE(QDir().mkpath(QFileInfo(path(relative)).path()));
        EXPECT_TRUE(QFile::link(target, path(relative))) << relative;
    }

    std::shared_ptr<QImage> find(const char *dirName, const char *imageName)
    {
        return mgr->getImageRef(QString::fromUtf8(dirName), QString::fromUtf8(imageName));
    }

    /// Whether there is an entry, be it a null image.
    bool holds(const char *dirName, const char *imageName)
    {
        return find(dirName, imageName) != nullptr;
    }

    /// The colour of the image found; 0 for a null image or none.
    QRgb colour(const char *dirName, const char *imageName)
    {
        const std::shared_ptr<QImage> image = find(dirName, imageName);
        return image && !image->isNull() ? image->pixel(0, 0) : 0;
    }

    bool holdsNullImage(const char *dirName, const char *imageName)
    {
        const std::shared_ptr<QImage> image = find(dirName, imageName);
        return image && image->isNull();
    }

    GlobalStateGuard guard;
    QTemporaryDir root;
    TavPluginHost host{TAV_PLUGIN_FILE};
    ITavPicResourceMgr *const mgr = host.manager<ITavPicResourceMgr>();
};
}

TEST_F(PicResourceMgr, HoldsNothingAtFirst)
{
    writePicture("icons/ok.png", red);
    EXPECT_FALSE(holds("icons", "ok"));
    EXPECT_FALSE(holds("", ""));
}

TEST_F(PicResourceMgr, FindsAnImageByDirectoryNameAndBaseName)
{
    writePicture("icons/ok.png", red);
    writePicture("icons/no.png", green);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "ok"), red);
    EXPECT_EQ(colour("icons", "no"), green);
}

TEST_F(PicResourceMgr, FindsNothingUnderAnyOtherName)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_FALSE(holds("icons", "ok.png"));
    EXPECT_FALSE(holds("icons", "o"));
    EXPECT_FALSE(holds("icons", "okk"));
    EXPECT_FALSE(holds("icons", ""));
    EXPECT_FALSE(holds("", "ok"));
    EXPECT_FALSE(holds("ok", "icons"));
    EXPECT_FALSE(holds("icons/", "ok"));
    EXPECT_FALSE(mgr->getImageRef(path("icons"), QStringLiteral("ok")));
}

TEST_F(PicResourceMgr, IgnoresTheCaseOfBothNames)
{
    writePicture("IcOns/oK.png", red);
    mgr->appendPicResourcePath(path("IcOns"));
    EXPECT_EQ(colour("icons", "ok"), red);
    EXPECT_EQ(colour("ICONS", "OK"), red);
    EXPECT_EQ(colour("iCoNS", "Ok"), red);
}

TEST_F(PicResourceMgr, UpperCasesBeyondAscii)
{
    writePicture("straße/grün.png", red);
    writePicture("图标/主机.png", green);
    writePicture("ćwierć/ŷ.png", blue);
    mgr->appendPicResourcePath(path("straße"));
    mgr->appendPicResourcePath(path("图标"));
    mgr->appendPicResourcePath(path("ćwierć"));
    EXPECT_EQ(colour("straße", "grün"), red);
    EXPECT_EQ(colour("STRASSE", "GRÜN"), red);
    EXPECT_EQ(colour("strasse", "GrÜn"), red);
    EXPECT_EQ(colour("图标", "主机"), green);
    EXPECT_EQ(colour("ĆWIERĆ", "Ŷ"), blue);
}

TEST_F(PicResourceMgr, UpperCasesWithoutRegardToTheLocale)
{
    const QLocale before;
    writePicture("mini/i.png", red);
    QLocale::setDefault(QLocale(QLocale::Turkish));
    mgr->appendPicResourcePath(path("mini"));
    EXPECT_EQ(colour("MINI", "I"), red);
    QLocale::setDefault(before);
    EXPECT_EQ(colour("mini", "i"), red);
    EXPECT_EQ(colour("MINI", "I"), red);
}

TEST_F(PicResourceMgr, TakesPngFilesAlone)
{
    for (const char *const name : {"a.jpg", "b.png.bak", "c.pngx", "d", "png", "epng", "f.png~"}) {
        writePicture(QStringLiteral("icons/") + QLatin1String(name), red);
    }
    writePicture("icons/taken.png", green);
    mgr->appendPicResourcePath(path("icons"));
    for (const char *const baseName : {"a", "b", "c", "d", "png", "epng", "f"}) {
        EXPECT_FALSE(holds("icons", baseName)) << baseName;
    }
    EXPECT_EQ(colour("icons", "taken"), green);
}

TEST_F(PicResourceMgr, IgnoresTheCaseOfTheSuffix)
{
    writePicture("icons/a.PNG", red);
    writePicture("icons/b.pNg", green);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "a"), red);
    EXPECT_EQ(colour("icons", "b"), green);
}

TEST_F(PicResourceMgr, NamesAnImageUpToItsFirstDot)
{
    writePicture("icons/icon.hover.pressed.png", red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "icon"), red);
    EXPECT_FALSE(holds("icons", "icon.hover"));
    EXPECT_FALSE(holds("icons", "icon.hover.pressed"));
}

TEST_F(PicResourceMgr, KeepsTheLastOfTheFilesWithOneBaseName)
{
    writePicture("icons/icon.png", red);
    writePicture("icons/icon.hover.png", green);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "icon"), red);
}

TEST_F(PicResourceMgr, OrdersFilesByNameIgnoringCase)
{
    writePicture("icons/icon.Z.png", red); // before "icon.a.png" if case counted
    writePicture("icons/icon.a.png", green);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "icon"), red);
}

TEST_F(PicResourceMgr, KeepsOneOfTwoFilesThatDifferInCaseOnly)
{
    writePicture("icons/ok.png", red);
    writePicture("icons/OK.png", green);
    mgr->appendPicResourcePath(path("icons"));
    const QRgb found = colour("icons", "ok");
    EXPECT_TRUE(found == red || found == green);
}

TEST_F(PicResourceMgr, TakesTheImageOfTheDirectoryAppendedLast)
{
    writePicture("one/common/x.png", red);
    writePicture("one/common/only.png", blue);
    writePicture("two/Common/x.png", green);
    mgr->appendPicResourcePath(path("one/common"));
    mgr->appendPicResourcePath(path("two/Common"));
    EXPECT_EQ(colour("common", "x"), green);
    EXPECT_EQ(colour("common", "only"), blue);
    mgr->appendPicResourcePath(path("one/common"));
    EXPECT_EQ(colour("common", "x"), red);
}

TEST_F(PicResourceMgr, KeepsImagesOfOtherDirectoriesApart)
{
    writePicture("one/x.png", red);
    writePicture("two/x.png", green);
    mgr->appendPicResourcePath(path("one"));
    mgr->appendPicResourcePath(path("two"));
    EXPECT_EQ(colour("one", "x"), red);
    EXPECT_EQ(colour("two", "x"), green);
}

TEST_F(PicResourceMgr, TakesThePixelRatioFromTheFileName)
{
    for (const char *const name : {"ok", "ok@2x", "ok@3x", "no@2x.hover", "no@1x", "no@2xx"}) {
        writePicture(QStringLiteral("icons/%1.png").arg(name), red);
    }
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(find("icons", "ok")->devicePixelRatio(), 1);
    EXPECT_EQ(find("icons", "ok@2x")->devicePixelRatio(), 2);
    EXPECT_EQ(find("icons", "ok@3x")->devicePixelRatio(), 3);
    EXPECT_EQ(find("icons", "no@2x")->devicePixelRatio(), 2);
    EXPECT_EQ(find("icons", "no@1x")->devicePixelRatio(), 1);
    EXPECT_EQ(find("icons", "no@2xx")->devicePixelRatio(), 1);
}

TEST_F(PicResourceMgr, LoadsADirectoryThatIsCompiledIntoTheProgram)
{
    mgr->appendPicResourcePath(QStringLiteral(":/pics/common/res"));
    const std::shared_ptr<QImage> ok = find("res", "ok");
    ASSERT_TRUE(ok);
    EXPECT_EQ(*ok, QImage(QStringLiteral(":/pics/common/res/ok.png")));
    EXPECT_FALSE(ok->isNull());
    EXPECT_EQ(find("more.png", "large@2x")->devicePixelRatio(), 2);
}

TEST_F(PicResourceMgr, SkipsSubdirectories)
{
    writePicture("icons/sub/x.png", red);
    writePicture("icons/png/x.png", red);
    writePicture("icons/x.pngs/x.png", red);
    mgr->appendPicResourcePath(path("icons"));
    for (const char *const dirName : {"sub", "png", "x.pngs", "icons"}) {
        EXPECT_FALSE(holds(dirName, "x")) << dirName;
    }
}

TEST_F(PicResourceMgr, ScansSubdirectoriesNamedAsPngFiles)
{
    writePicture("icons/more.png/x.png", red);
    writePicture("icons/more.png/deep.PNG/y.png", green);
    writePicture("icons/more.png/sub/z.png", blue);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("MORE.PNG", "x"), red);
    EXPECT_EQ(colour("deep.png", "y"), green);
    EXPECT_FALSE(holds("sub", "z"));
    EXPECT_FALSE(holds("icons", "more"));
    EXPECT_FALSE(holds("icons", "x"));
}

TEST_F(PicResourceMgr, DoesNotPutSubdirectoriesBeforeFiles)
{
    writePicture("x.png/icon.png", red);
    writePicture("x.png/x.png/icon.png", green); // same key, later in the order of names
    mgr->appendPicResourcePath(path("x.png"));
    EXPECT_EQ(colour("x.png", "icon"), green);
}

TEST_F(PicResourceMgr, DoesNotPutSubdirectoriesAfterFiles)
{
    writePicture("x.png/z.png", red); // same key as the next, later in the order of names
    writePicture("x.png/x.png/z.png", green);
    mgr->appendPicResourcePath(path("x.png"));
    EXPECT_EQ(colour("x.png", "z"), red);
}

TEST_F(PicResourceMgr, SkipsHiddenEntries)
{
    writePicture("icons/.ok.png", red);
    writePicture("icons/.png", red);
    writePicture("icons/.more.png/x.png", red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_FALSE(holds("icons", ""));
    EXPECT_FALSE(holds("icons", "ok"));
    EXPECT_FALSE(holds("icons", ".ok"));
    EXPECT_FALSE(holds(".more.png", "x"));
}

TEST_F(PicResourceMgr, ScansAHiddenDirectoryThatIsAppendedItself)
{
    writePicture(".icons/ok.png", red);
    mgr->appendPicResourcePath(path(".icons"));
    EXPECT_EQ(colour(".icons", "ok"), red);
}

TEST_F(PicResourceMgr, FollowsLinksToFilesUnderTheirOwnNames)
{
    writePicture("elsewhere/picture.dat", red);
    link(path("elsewhere/picture.dat"), "icons/linked.png");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "linked"), red);
    EXPECT_FALSE(holds("icons", "picture"));
}

TEST_F(PicResourceMgr, FollowsLinksToDirectoriesUnderTheirOwnNames)
{
    writePicture("elsewhere/x.png", red);
    link(path("elsewhere"), "icons/linked.png");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("linked.png", "x"), red);
    EXPECT_FALSE(holds("elsewhere", "x"));
}

TEST_F(PicResourceMgr, NamesALinkedDirectoryThatIsAppendedItselfAsTheLink)
{
    writePicture("elsewhere/x.png", red);
    link(path("elsewhere"), "linked");
    mgr->appendPicResourcePath(path("linked"));
    EXPECT_EQ(colour("linked", "x"), red);
    EXPECT_FALSE(holds("elsewhere", "x"));
}

TEST_F(PicResourceMgr, SkipsBrokenLinks)
{
    link(path("nowhere"), "icons/broken.png");
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_FALSE(holds("icons", "broken"));
    EXPECT_EQ(colour("icons", "ok"), red);
}

TEST_F(PicResourceMgr, RecognisesTheFormatByTheContent)
{
    writePicture("icons/photo.png", red, "JPG");
    writePicture("icons/bitmap.png", green, "BMP");
    mgr->appendPicResourcePath(path("icons"));
    const std::shared_ptr<QImage> photo = find("icons", "photo");
    ASSERT_TRUE(photo && !photo->isNull());
    EXPECT_GT(qRed(photo->pixel(0, 0)), 240); // lossy
    EXPECT_LT(qGreen(photo->pixel(0, 0)), 15);
    EXPECT_EQ(colour("icons", "bitmap"), green);
}

TEST_F(PicResourceMgr, HoldsANullImageForAFileThatCannotBeDecoded)
{
    writePicture("icons/whole.png", red);
    QFile whole(path("icons/whole.png"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    writeFile(path("icons/cut.png"), whole.readAll().left(20));
    writeFile(path("icons/empty.png"), "");
    writeFile(path("icons/text.png"), "this is no picture");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_TRUE(holdsNullImage("icons", "cut"));
    EXPECT_TRUE(holdsNullImage("icons", "empty"));
    EXPECT_TRUE(holdsNullImage("icons", "text"));
    EXPECT_EQ(colour("icons", "whole"), red);
}

TEST_F(PicResourceMgr, ReplacesAnImageByANullImageWhenItsFileBreaks)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    writeFile(path("icons/ok.png"), "broken");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_TRUE(holdsNullImage("icons", "ok"));
}

TEST_F(PicResourceMgr, SharesOneImageWithAllWhoAsk)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    const std::shared_ptr<QImage> one = find("icons", "ok");
    const std::shared_ptr<QImage> other = find("ICONS", "OK");
    EXPECT_EQ(one, other);
    EXPECT_EQ(one.use_count(), 3); // these two and the manager's
}

TEST_F(PicResourceMgr, ReloadsADirectoryThatIsAppendedAgain)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    writePicture("icons/ok.png", green);
    writePicture("icons/new.png", blue);
    EXPECT_EQ(colour("icons", "ok"), red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "ok"), green);
    EXPECT_EQ(colour("icons", "new"), blue);
}

TEST_F(PicResourceMgr, LeavesAnImageThatIsHeldUnchangedByAReload)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    const std::shared_ptr<QImage> held = find("icons", "ok");
    ASSERT_TRUE(held);
    writePicture("icons/ok.png", green);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(held->pixel(0, 0), red);
    EXPECT_EQ(held.use_count(), 1); // the manager has let go of it
    EXPECT_NE(find("icons", "ok"), held);
}

TEST_F(PicResourceMgr, RemovesNoEntry)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    QFile::remove(path("icons/ok.png"));
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "ok"), red);
}

TEST_F(PicResourceMgr, ReadsNoFileOnALookUp)
{
    constexpr int count = 20;
    for (int i = 0; i < count; ++i) {
        writePicture(QStringLiteral("icons/%1.png").arg(i), 0xff000000U + static_cast<QRgb>(i));
    }
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_TRUE(QDir(path("icons")).removeRecursively());
    for (int i = 0; i < count; ++i) {
        const std::shared_ptr<QImage> image = mgr->getImageRef(QStringLiteral("icons"), QString::number(i));
        ASSERT_TRUE(image && !image->isNull()) << i;
        EXPECT_EQ(image->pixel(1, 1), 0xff000000U + static_cast<QRgb>(i));
    }
}

TEST_F(PicResourceMgr, LeavesImagesThatAreHeldAliveWhenItEnds)
{
    writePicture("icons/ok.png", red);
    std::shared_ptr<QImage> held;
    {
        TavPluginHost ending{TAV_PLUGIN_FILE};
        auto *const endingMgr = ending.manager<ITavPicResourceMgr>();
        endingMgr->appendPicResourcePath(path("icons"));
        held = endingMgr->getImageRef(QStringLiteral("icons"), QStringLiteral("ok"));
    }
    ASSERT_TRUE(held);
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(held->pixel(0, 0), red);
}

TEST_F(PicResourceMgr, AnUnknownNameChangesNothing)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_FALSE(holds("icons", "later"));
    EXPECT_FALSE(holds("icons", "later"));
    EXPECT_EQ(colour("icons", "ok"), red);
    writePicture("icons/later.png", green);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "later"), green);
}

TEST_F(PicResourceMgr, TakesATrailingSlash)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons/"));
    EXPECT_EQ(colour("icons", "ok"), red);
}

TEST_F(PicResourceMgr, TakesTheDirectoryNameFromThePathAsItIsGiven)
{
    writePicture("icons/ok.png", red);
    makeDirectory("other");
    mgr->appendPicResourcePath(path("other/../icons"));
    EXPECT_EQ(colour("icons", "ok"), red);
    mgr->appendPicResourcePath(path("other/../icons/."));
    EXPECT_EQ(colour(".", "ok"), red);
}

TEST_F(PicResourceMgr, AddsNothingForAPathThatIsNoDirectory)
{
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("nowhere"));
    mgr->appendPicResourcePath(path("icons/ok.png"));
    mgr->appendPicResourcePath(path("icons/nowhere.png"));
    EXPECT_FALSE(holds("icons", "ok"));
    EXPECT_FALSE(holds("ok.png", ""));
}

TEST_F(PicResourceMgr, AddsNothingForAnEmptyDirectory)
{
    mgr->appendPicResourcePath(makeDirectory("icons"));
    EXPECT_FALSE(holds("icons", ""));
}

TEST_F(PicResourceMgr, DropsFilesWhosePathHasASingleSlash)
{
    writePicture("icons/ok.png", red);
    writePicture("here.png", green);
    const WorkingDirectory directory(root.path());
    mgr->appendPicResourcePath(QStringLiteral("icons"));
    EXPECT_FALSE(holds("icons", "ok"));
    mgr->appendPicResourcePath(QStringLiteral("."));
    mgr->appendPicResourcePath(QString());
    EXPECT_FALSE(holds(".", "here"));
    EXPECT_FALSE(holds("", "here"));
}

TEST_F(PicResourceMgr, TakesFilesOfADirectoryDirectlyBelowTheRoot)
{
    writePicture("icons/ok.png", red);
    writePicture("top.png", green);
    const auto append = [this, rootName = QFile::encodeName(root.path())] {
        changeRoot(rootName.constData());
        mgr->appendPicResourcePath(QStringLiteral("/icons"));
        mgr->appendPicResourcePath(QStringLiteral("/"));
        EXPECT_EQ(colour("icons", "ok"), red);
        EXPECT_FALSE(holds("", "top"));
    };
    EXPECT_TRUE(runInChild(append).passed);
}

TEST_F(PicResourceMgr, TakesFilesOfARelativePathWithTwoSlashes)
{
    writePicture("top/icons/ok.png", red);
    writePicture("pictures/no.png", green);
    writePicture("pictures/more.png/deep.png", blue);
    const WorkingDirectory directory(root.path());
    mgr->appendPicResourcePath(QStringLiteral("top/icons"));
    EXPECT_EQ(colour("icons", "ok"), red);
    mgr->appendPicResourcePath(QStringLiteral("pictures"));
    EXPECT_FALSE(holds("pictures", "no"));
    EXPECT_EQ(colour("more.png", "deep"), blue);
    mgr->appendPicResourcePath(QStringLiteral("./pictures"));
    EXPECT_EQ(colour("pictures", "no"), green);
}

TEST_F(PicResourceMgr, SkipsAPipe)
{
    makeDirectory("icons");
    ASSERT_EQ(mkfifo(QFile::encodeName(path("icons/pipe.png")).constData(), 0600), 0);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_FALSE(holds("icons", "pipe"));
}

TEST_F(PicResourceMgr, HoldsANullImageForALinkToAPipeOrADevice)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    link(path("pipe"), "icons/pipe.png");
    link(QStringLiteral("/dev/zero"), "icons/zero.png");
    link(QStringLiteral("/dev/null"), "icons/null.png");
    writePicture("icons/ok.png", red);
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_TRUE(holdsNullImage("icons", "pipe"));
    EXPECT_TRUE(holdsNullImage("icons", "zero"));
    EXPECT_TRUE(holdsNullImage("icons", "null"));
    EXPECT_EQ(colour("icons", "ok"), red);
}

TEST_F(PicResourceMgr, EndsAtALinkToItsOwnDirectory)
{
    writePicture("icons/ok.png", red);
    link(path("icons"), "icons/loop.png");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("icons", "ok"), red);
    EXPECT_EQ(colour("loop.png", "ok"), red); // as it is reached through the link
    EXPECT_FALSE(holds("icons", "loop"));
    EXPECT_FALSE(holds("loop.png", "loop"));
    EXPECT_EQ(find("icons", "ok").use_count(), 2);
}

TEST_F(PicResourceMgr, EndsAtTwoLinksToTheirOwnDirectory)
{
    writePicture("icons/ok.png", red);
    link(path("icons"), "icons/a.png");
    link(path("icons"), "icons/b.png");
    mgr->appendPicResourcePath(path("icons"));
    for (const char *const dirName : {"icons", "a.png", "b.png"}) {
        EXPECT_EQ(colour(dirName, "ok"), red) << dirName;
        EXPECT_FALSE(holds(dirName, "a")) << dirName;
        EXPECT_FALSE(holds(dirName, "b")) << dirName;
    }
}

TEST_F(PicResourceMgr, EndsAtManyLinksToTheirOwnDirectory)
{
    writePicture("icons/ok.png", red);
    for (int i = 0; i < 30; ++i) {
        link(path("icons"), qPrintable(QStringLiteral("icons/loop%1.png").arg(i)));
    }
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("loop0.png", "ok"), red);
    EXPECT_EQ(colour("loop29.png", "ok"), red);
}

TEST_F(PicResourceMgr, EndsAtLinksThatLeadRoundThroughTwoDirectories)
{
    writePicture("one/x.png", red);
    writePicture("two/x.png", green);
    link(path("two"), "one/to-two.png");
    link(path("one"), "two/to-one.png");
    mgr->appendPicResourcePath(path("one"));
    EXPECT_EQ(colour("one", "x"), red);
    EXPECT_EQ(colour("to-two.png", "x"), green);
    EXPECT_EQ(colour("to-one.png", "x"), red);
    EXPECT_FALSE(holds("two", "x"));
}

TEST_F(PicResourceMgr, ListsADirectoryAgainUnderEachNameThatLeadsToIt)
{
    writePicture("elsewhere/x.png", red);
    link(path("elsewhere"), "icons/a.png");
    link(path("elsewhere"), "icons/b.png");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("a.png", "x"), red);
    EXPECT_EQ(colour("b.png", "x"), red);
}

TEST_F(PicResourceMgr, LetsTheLastOfSeveralWaysToOneKeyWin)
{
    // The first and the last way lead to one directory, under one name; the middle way to another of that name.
    writePicture("elsewhere/x.png", red);
    link(path("elsewhere"), "icons/1.png/common.png");
    writePicture("icons/2.png/common.png/x.png", green);
    link(path("elsewhere"), "icons/3.png/common.png");
    mgr->appendPicResourcePath(path("icons"));
    EXPECT_EQ(colour("common.png", "x"), red);
}

TEST_F(PicResourceMgr, HoldsAThousandImages)
{
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i) {
        writePicture(QStringLiteral("icons/icon%1.png").arg(i), 0xff000000U + static_cast<QRgb>(i));
    }
    mgr->appendPicResourcePath(path("icons"));
    for (int i = 0; i < count; ++i) {
        const std::shared_ptr<QImage> image
            = mgr->getImageRef(QStringLiteral("icons"), QStringLiteral("ICON%1").arg(i));
        ASSERT_TRUE(image && !image->isNull()) << i;
        EXPECT_EQ(image->pixel(0, 0), 0xff000000U + static_cast<QRgb>(i));
    }
}

TEST_F(PicResourceMgr, TellsKeysApartThatAreEqualWhenJoined)
{
    writePicture("ab/c.png", red);
    writePicture("a/bc.png", green);
    mgr->appendPicResourcePath(path("ab"));
    mgr->appendPicResourcePath(path("a"));
    EXPECT_EQ(colour("ab", "c"), red);
    EXPECT_EQ(colour("a", "bc"), green);
    EXPECT_FALSE(holds("abc", ""));
}

TEST_F(PicResourceMgr, LetsSeveralThreadsLookUpAtOnce)
{
    constexpr int count = 50;
    for (int i = 0; i < count; ++i) {
        writePicture(QStringLiteral("icons/%1.png").arg(i), 0xff000000U + static_cast<QRgb>(i));
    }
    mgr->appendPicResourcePath(path("icons"));
    std::atomic<int> faults = 0;
    const auto lookUp = [&](int first) {
        for (int i = first; i < first + 20000; ++i) {
            const std::shared_ptr<QImage> image = mgr->getImageRef(QStringLiteral("icons"), QString::number(i % count));
            faults += !image || image->pixel(0, 0) != 0xff000000U + static_cast<QRgb>(i % count);
            faults += mgr->getImageRef(QStringLiteral("unknown"), QString::number(i)) != nullptr;
        }
    };
    std::thread one(lookUp, 0);
    std::thread two(lookUp, 20000);
    std::thread three(lookUp, 40000);
    one.join();
    two.join();
    three.join();
    EXPECT_EQ(faults, 0);
}
