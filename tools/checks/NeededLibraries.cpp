#include "NeededLibraries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QVector>

#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <utility>

namespace
{
/// @brief The dynamic section of an ELF file. What lies outside of the file reads as zeros and empty texts.
class DynamicSection
{
public:
    explicit DynamicSection(QByteArray file) : m_file(std::move(file))
    {
        const auto header = at<ElfW(Ehdr)>(0);
        for (int i = 0; i < header.e_phnum; ++i) {
            const auto segment = at<ElfW(Phdr)>(header.e_phoff + i * sizeof(ElfW(Phdr)));
            if (segment.p_type == PT_DYNAMIC) {
                readEntries(segment.p_offset);
            } else if (segment.p_type == PT_LOAD) {
                m_loaded.append(segment);
            }
        }
    }

    /// The texts of all entries with this tag.
    QStringList texts(qint64 tag) const
    {
        QStringList found;
        for (const ElfW(Dyn) & entry : m_entries) {
            if (entry.d_tag == tag) {
                found.append(QFile::decodeName(textAt(entry.d_un.d_val)));
            }
        }
        return found;
    }

private:
    template<class Record>
    Record at(quint64 offset) const
    {
        Record record = {};
        if (offset <= quint64(m_file.size()) && m_file.size() - offset >= sizeof record) {
            std::memcpy(&record, m_file.constData() + offset, sizeof record);
        }
        return record;
    }

    void readEntries(quint64 offset)
    {
        for (auto entry = at<ElfW(Dyn)>(offset); entry.d_tag != DT_NULL; entry = at<ElfW(Dyn)>(offset)) {
            m_entries.append(entry);
            offset += sizeof entry;
        }
    }

    /// The text at this offset of the string table, which is known by its address in memory alone.
    QByteArray textAt(quint64 offset) const
    {
        quint64 address = 0;
        for (const ElfW(Dyn) & entry : m_entries) {
            address = entry.d_tag == DT_STRTAB ? entry.d_un.d_ptr : address;
        }
        for (const ElfW(Phdr) & segment : m_loaded) {
            if (address >= segment.p_vaddr && address - segment.p_vaddr < segment.p_filesz) {
                const quint64 start = address - segment.p_vaddr + segment.p_offset + offset;
                return start < quint64(m_file.size()) ? QByteArray(m_file.constData() + start) : QByteArray();
            }
        }
        return {};
    }

    QByteArray m_file;
    QVector<ElfW(Dyn)> m_entries;
    QVector<ElfW(Phdr)> m_loaded;
};

/// @brief Follows the needs of a library.
class Search
{
public:
    void follow(const QString &path)
    {
        QFile file(path);
        if (m_followed.contains(path) || !file.open(QIODevice::ReadOnly)) {
            return;
        }
        m_followed.insert(path);
        const DynamicSection section(file.readAll());
        QStringList directories;
        const QStringList searchPaths = section.texts(DT_RPATH) + section.texts(DT_RUNPATH);
        for (const QString &searchPath : searchPaths) {
            directories += searchPath.split(':');
        }
        directories.replaceInStrings("${ORIGIN}", "$ORIGIN");
        directories.replaceInStrings("$ORIGIN", QFileInfo(path).absolutePath());
        const QStringList needed = section.texts(DT_NEEDED);
        for (const QString &name : needed) {
            findOne(name, directories);
        }
    }

    QStringList missing() const
    {
        return m_missing;
    }

private:
    void findOne(const QString &name, const QStringList &directories)
    {
        for (const QString &directory : directories) {
            if (QDir(directory).exists(name)) {
                follow(QDir(directory).filePath(name));
                return;
            }
        }
        // The linker knows the other places. It is one that the plugin's loading would initialise as well.
        if (void *const library = dlopen(QFile::encodeName(name).constData(), RTLD_LAZY)) {
            dlclose(library);
            return;
        }
        // The one that is missing may be one that this one needs. No other thread loads anything.
        const QString reason = QString::fromLocal8Bit(dlerror()); // NOLINT(concurrency-mt-unsafe)
        const QString lacking = reason.section(':', 0, 0);
        if (!m_missing.contains(lacking)) {
            m_missing.append(lacking);
        }
    }

    QSet<QString> m_followed;
    QStringList m_missing;
};
}

QStringList missingLibraries(const QString &file)
{
    Search search;
    search.follow(file);
    return search.missing();
}
