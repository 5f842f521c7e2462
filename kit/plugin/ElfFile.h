#pragma once

#include <QFile>
#include <QString>
#include <QStringList>
#include <QVector>

#include <link.h>

/**
 * @brief A shared library read as a file, without loading it: what it was built for, whether it is all there, what its
 * dynamic section names. What lies outside of the file reads as zeros and empty texts.
 */
class ElfFile
{
public:
    /// @brief For which machine a file is.
    struct Machine {
        int number; ///< EM_…
        int bits; ///< word size, 32 or 64
        bool isBigEndian;

        /// Such as "x86-64" or "AArch64".
        QString name() const;
    };

    /// Reads what stands at @p path, which must be a regular file.
    explicit ElfFile(const QString &path);

    /// Whether it can be read at all; errorString() has the reason.
    bool isReadable() const
    {
        return m_file.isOpen();
    }

    QString errorString() const
    {
        return m_file.errorString();
    }

    /// Whether it begins as an ELF file does.
    bool hasMark() const;

    /// Whether it ends before what its headers announce. Asked only of files for this program's machine; for others it
    /// tells whether the machine can be read.
    bool isCutOff() const;

    /// Whether it is a library, and not a program at a fixed place or the result of compiling one unit.
    bool isSharedLibrary() const;

    Machine machine() const;

    /// That of the program which asks.
    static Machine ownMachine();

    /// The texts of all entries of the dynamic section with this tag, such as DT_NEEDED.
    QStringList dynamicTexts(qint64 tag) const;

private:
    template<class Record>
    Record at(quint64 offset) const;

    bool isWithin(quint64 offset, quint64 size) const;
    QVector<ElfW(Phdr)> segments() const;
    quint64 offsetOf(quint64 address) const;

    mutable QFile m_file; // reading moves its position
    quint64 m_size{}; // when it was opened
};
