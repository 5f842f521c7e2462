// The manager ends at links that lead in circles by listing no directory twice under one name. Whatever it leaves out
// must make no difference: here it stands beside the plain scan, which leaves nothing out, on many trees with links.

#include "GlobalStateGuard.h"
#include "ITavPicResourceMgr.h"
#include "ProofSize.h"
#include "TavPluginHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>
#include <utility>
#include <vector>

namespace
{
using Key = std::pair<QString, QString>;
using Pictures = std::map<Key, QRgb>;

QRgb colourOf(const QImage &image)
{
    return image.isNull() ? 0 : image.pixel(0, 0);
}

/// @brief The scan without any guard: it ends where the system refuses to follow more links, or is given up.
class PlainScan
{
public:
    /// What the files of one append would be under their keys; none when it takes too long.
    static std::optional<Pictures> picturesBelow(const QString &path)
    {
        PlainScan scan;
        if (!scan.scan(path)) {
            return std::nullopt;
        }
        Pictures pictures;
        for (const auto &[key, filePath] : scan.m_found) {
            pictures[key] = colourOf(QImage(filePath));
        }
        return pictures;
    }

private:
    bool scan(const QString &path)
    {
        QDir dir(path);
        dir.setNameFilters({"*.png"});
        dir.setSorting(QDir::Name | QDir::IgnoreCase);
        dir.setFilter(QDir::Dirs | QDir::Files);
        if (++m_listed > 400) {
            return false;
        }
        if (!dir.exists()) {
            return true;
        }
        for (const QFileInfo &entry : dir.entryInfoList()) {
            if (entry.fileName() == "." || entry.fileName() == "..") {
                continue;
            }
            if (entry.isDir()) {
                if (!scan(entry.filePath())) {
                    return false;
                }
                continue;
            }
            const QString filePath = entry.filePath();
            const int last = filePath.lastIndexOf('/');
            const int before = last <= 0 ? -1 : filePath.lastIndexOf('/', last - 1);
            if (last < 0 || before < 0) {
                continue;
            }
            const QString dirName = filePath.mid(before + 1, last - before - 1).toUpper();
            m_found.push_back({{dirName, entry.baseName().toUpper()}, filePath});
        }
        return true;
    }

    int m_listed = 0;
    std::vector<std::pair<Key, QString>> m_found;
};

/// @brief A tree of directories, pictures of different colours, and links among them, made from a seed.
class Tree
{
public:
    explicit Tree(unsigned seed) : m_random(seed)
    {
        const QString top = m_root.filePath(anyOf({"l.png", "icons", "Common.PNG", "sub"}));
        m_paths.append(top);
        fill(top, 0);
        addLinks(top);
    }

    QString root() const
    {
        return m_root.path();
    }

    /// Ways to name directories of the tree, seen from its root.
    QStringList waysIn() const
    {
        QStringList ways{"", ".", "..", "./", m_root.path()};
        for (const QString &path : m_paths) {
            const QString relative = QDir(m_root.path()).relativeFilePath(path);
            ways << relative << "./" + relative << relative + '/' << path << path + "//" << relative + "/."
                 << relative + "/..";
        }
        return ways;
    }

private:
    QString anyOf(const QStringList &names)
    {
        return names[below(names.size())];
    }

    int below(int limit)
    {
        return std::uniform_int_distribution<int>(0, limit - 1)(m_random);
    }

    void fill(const QString &path, int depth)
    {
        EXPECT_TRUE(QDir().mkpath(path));
        for (int files = 1 + below(3); files > 0; --files) {
            QImage image(1, 1, QImage::Format_RGB32);
            image.fill(0xff000000U + ++m_colour);
            image.save(path + '/' + anyOf({"a.png", "b.png", "c.hover.png", "c.png", "z.png", "l.png"}), "PNG");
        }
        for (int directories = depth < 2 ? below(3) : 0; directories > 0; --directories) {
            const QString below = path + '/' + anyOf({"l.png", "m.png", "common.png", "sub"});
            if (!QFileInfo::exists(below)) {
                m_paths.append(below);
                fill(below, depth + 1);
            }
        }
    }

    void addLinks(const QString &top)
    {
        for (int links = below(4); links > 0; --links) {
            const QString link
                = m_paths[below(m_paths.size())] + '/' + anyOf({"l.png", "k.png", "common.png", "y.png"});
            const QString target = below(3) == 0 ? QString(".")
                : below(2) == 0                  ? QString("..")
                                                 : m_paths[below(m_paths.size())];
            // A link that leads above the tree would lead into those of other programs.
            if (!(target == ".." && QFileInfo(link).path() == top)) {
                QFile::link(target, link);
            }
        }
    }

    QTemporaryDir m_root;
    std::mt19937 m_random;
    QStringList m_paths;
    QRgb m_colour = 0;
};

/// What the manager holds under any key that a tree can give.
Pictures picturesOf(ITavPicResourceMgr &mgr, const QString &rootName)
{
    QStringList dirNames{"", ".", "..", "SUB", "ICONS", rootName.toUpper()};
    const QStringList baseNames{"A", "B", "C", "COMMON", "ICONS", "K", "L", "M", "SUB", "Y", "Z"};
    for (const QString &baseName : baseNames) {
        dirNames.append(baseName + ".PNG");
    }
    Pictures pictures;
    for (const QString &dirName : dirNames) {
        for (const QString &baseName : baseNames) {
            if (const auto image = mgr.getImageRef(dirName, baseName)) {
                pictures[{dirName, baseName}] = colourOf(*image);
            }
        }
    }
    return pictures;
}

std::string textOf(const Pictures &pictures)
{
    QString text;
    for (const auto &[key, colour] : pictures) {
        text += QString("%1 %2: %3\n").arg(key.first, key.second).arg(colour, 0, 16);
    }
    return text.toStdString();
}
}

TEST(PictureScan, FindsWhatThePlainScanFindsInTreesWithLinks)
{
    const GlobalStateGuard guard;
    const QString before = QDir::currentPath();
    unsigned compared = 0;
    unsigned withPictures = 0;
    const unsigned trees = proofSize(12, 60);
    for (unsigned seed = 0; seed < trees; ++seed) {
        const Tree tree(seed);
        ASSERT_TRUE(QDir::setCurrent(tree.root()));
        for (const QString &way : tree.waysIn()) {
            const std::optional<Pictures> expected = PlainScan::picturesBelow(way);
            if (!expected) {
                continue;
            }
            TavPluginHost host{TAV_PLUGIN_FILE};
            auto &mgr = *host.manager<ITavPicResourceMgr>();
            mgr.appendPicResourcePath(way);
            ASSERT_EQ(textOf(picturesOf(mgr, QDir(tree.root()).dirName())), textOf(*expected))
                << seed << ' ' << qPrintable(way);
            ++compared;
            withPictures += !expected->empty();
        }
        QDir::setCurrent(before);
    }
    EXPECT_GT(compared, 8 * trees);
    EXPECT_GT(withPictures, 4 * trees);
}
