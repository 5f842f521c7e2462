#include "ElfFile.h"

#include "NeededLibraries.h"
#include "PrintQString.h"
#include "TextFile.h"

#include <QTemporaryDir>

#include <cstddef>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>

namespace
{
constexpr int segmentCount = 4;
constexpr int entryCount = 8;

/// No more of a library than is read of it. Its texts stand in the third segment, close behind the second.
struct Library {
    ElfW(Ehdr) header;
    ElfW(Phdr) segments[segmentCount];
    ElfW(Dyn) dynamic[entryCount];
    char texts[256];
};

constexpr quint64 textAddress = 0x5000;

ElfW(Phdr) segment(quint32 type, quint64 offset, quint64 address, quint64 size)
{
    ElfW(Phdr) segment = {};
    segment.p_type = type;
    segment.p_offset = offset;
    segment.p_vaddr = address;
    segment.p_filesz = size;
    return segment;
}

/// A library for this machine whose dynamic section has these texts.
Library libraryWith(const QVector<QPair<int, QByteArray>> &texts)
{
    Library library = {};
    const QByteArray own = contentOf(TAV_ABSENT_FILE).left(sizeof library.header);
    std::memcpy(&library.header, own.constData(), sizeof library.header);
    library.header.e_type = ET_DYN;
    library.header.e_phoff = offsetof(Library, segments);
    library.header.e_phnum = segmentCount;
    library.header.e_shoff = 0;
    library.header.e_shnum = 0;
    library.segments[0] = segment(PT_NOTE, 0, textAddress, sizeof library.texts);
    library.segments[1]
        = segment(PT_LOAD, offsetof(Library, dynamic), textAddress - sizeof library.dynamic, sizeof library.dynamic);
    library.segments[2] = segment(PT_LOAD, offsetof(Library, texts), textAddress, sizeof library.texts);
    library.segments[3] = segment(PT_DYNAMIC, offsetof(Library, dynamic), 0, sizeof library.dynamic);
    ElfW(Dyn) *entry = library.dynamic;
    std::size_t end = 1;
    for (const auto &[tag, text] : texts) {
        entry->d_tag = tag;
        entry->d_un.d_val = end;
        ++entry;
        std::memcpy(library.texts + end, text.constData(), std::size_t(text.size()));
        end += std::size_t(text.size()) + 1;
    }
    entry->d_tag = DT_STRTAB;
    entry->d_un.d_ptr = textAddress;
    return library;
}

QByteArray bytesOf(const Library &library)
{
    return {reinterpret_cast<const char *>(&library), int(sizeof library)};
}

class ElfFiles : public testing::Test
{
protected:
    /// Writes the library there; its path.
    QString write(const QString &name, const QByteArray &content)
    {
        const QString path = directory.filePath(name);
        writeFile(path, content);
        return path;
    }

    const QTemporaryDir directory;
};
}

TEST_F(ElfFiles, FindsTheTextsOfItsDynamicSectionByTheirAddress)
{
    Library library = libraryWith({{DT_NEEDED, "libOne.so"}, {DT_RUNPATH, "/lib"}, {DT_NEEDED, "libTwo.so"}});
    EXPECT_EQ(ElfFile(write("whole.so", bytesOf(library))).dynamicTexts(DT_NEEDED),
              (QStringList{"libOne.so", "libTwo.so"}));
    library.segments[2].p_vaddr += 0x1000;
    EXPECT_EQ(ElfFile(write("elsewhere.so", bytesOf(library))).dynamicTexts(DT_NEEDED), (QStringList{"", ""}));
    library.dynamic[3].d_tag = DT_DEBUG;
    EXPECT_EQ(ElfFile(write("without.so", bytesOf(library))).dynamicTexts(DT_NEEDED), (QStringList{"", ""}));
}

TEST_F(ElfFiles, AreCutOffWhereTheirHeadersAnnounceMore)
{
    constexpr int headerEnd = sizeof(ElfW(Ehdr));
    constexpr int segmentEnd = headerEnd + int(sizeof(ElfW(Phdr)));
    const struct {
        int segments;
        quint32 type;
        int announced;
        int size;
        bool isCutOff;
    } rows[] = {
        {0, PT_LOAD, segmentEnd + 1, headerEnd, false},
        {0, PT_LOAD, segmentEnd + 1, headerEnd - 1, true},
        {0, PT_LOAD, segmentEnd + 1, segmentEnd, false}, // it has no segment, although it looks like one
        {1, PT_LOAD, 0, headerEnd, true},
        {1, PT_LOAD, segmentEnd, segmentEnd, false},
        {1, PT_LOAD, segmentEnd + 1, segmentEnd, true},
        {1, PT_NOTE, segmentEnd + 1, segmentEnd, false},
    };
    for (const auto &row : rows) {
        Library library = libraryWith({});
        library.header.e_phnum = ElfW(Half)(row.segments);
        library.segments[0] = segment(row.type, 0, 0, quint64(row.announced));
        const ElfFile file(write("cut.so", bytesOf(library).left(row.size)));
        EXPECT_EQ(file.isCutOff(), row.isCutOff)
            << row.segments << ' ' << row.type << ' ' << row.announced << ' ' << row.size;
    }
}

TEST_F(ElfFiles, LeadThroughTheirSearchPathsToWhatIsMissing)
{
    const QString top
        = write("top.so", bytesOf(libraryWith({{DT_RUNPATH, "/none:$ORIGIN/deep"}, {DT_NEEDED, "libMiddle.so"}})));
    // It needs itself, too.
    write("deep/libMiddle.so",
          bytesOf(libraryWith(
              {{DT_RPATH, "${ORIGIN}/../deep"}, {DT_NEEDED, "libMiddle.so"}, {DT_NEEDED, "libBottom.so"}})));
    write("deep/libBottom.so", bytesOf(libraryWith({{DT_NEEDED, "libNowhere.so"}, {DT_NEEDED, "libNeither.so"}})));
    EXPECT_EQ(missingLibraries(top), (QStringList{"libNowhere.so", "libNeither.so"}));
}

TEST_F(ElfFiles, LeaveNothingLoadedThatTheyAreSearchedFor)
{
    EXPECT_EQ(missingLibraries(write("top.so", bytesOf(libraryWith({{DT_NEEDED, TAV_ABSENT_FILE}})))), QStringList());
    EXPECT_EQ(dlopen(TAV_ABSENT_FILE, RTLD_LAZY | RTLD_NOLOAD), nullptr);
}
