#include "ElfFile.h"

#include <QHash>

#include <array>
#include <climits>
#include <cstring>

/// The header of the program or library that this is linked into; the linker puts the symbol there.
extern "C" const ElfW(Ehdr) __ehdr_start __attribute__((visibility("hidden"))); // NOLINT(bugprone-reserved-identifier)

namespace
{
/// Up to and with the machine, all headers are alike but for the byte order.
constexpr quint64 machineEnd = EI_NIDENT + 4;

ElfFile::Machine machineIn(const unsigned char *header)
{
    const bool isBigEndian = header[EI_DATA] == ELFDATA2MSB;
    const unsigned char *const number = header + EI_NIDENT + 2;
    return {isBigEndian ? number[0] << 8 | number[1] : number[1] << 8 | number[0],
            header[EI_CLASS] == ELFCLASS32 ? 32 : 64, isBigEndian};
}
}

QString ElfFile::Machine::name() const
{
    static const QHash<int, QString> names{
        {EM_X86_64, "x86-64"}, {EM_AARCH64, "AArch64"}, {EM_386, "x86"}, {EM_ARM, "ARM"}, {EM_RISCV, "RISC-V"},
    };
    return (isBigEndian ? "big-endian " : "") + names.value(number, QString("machine %1").arg(number));
}

ElfFile::ElfFile(const QString &path) : m_file(path)
{
    m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered); // a few bytes here and there
    m_size = quint64(m_file.size());
}

bool ElfFile::hasMark() const
{
    return m_file.isOpen() && m_file.seek(0) && m_file.read(SELFMAG) == QByteArray(ELFMAG, SELFMAG);
}

bool ElfFile::isCutOff() const
{
    if (m_size < machineEnd) {
        return true;
    }
    const Machine file = machine();
    const Machine own = ownMachine();
    if (file.number != own.number || file.bits != own.bits || file.isBigEndian != own.isBigEndian) {
        return false;
    }
    const auto header = at<ElfW(Ehdr)>(0);
    if (m_size < sizeof header || !isWithin(header.e_phoff, quint64(header.e_phnum) * sizeof(ElfW(Phdr)))
        || !isWithin(header.e_shoff, quint64(header.e_shnum) * sizeof(ElfW(Shdr)))) {
        return true;
    }
    const QVector<ElfW(Phdr)> all = segments();
    for (const ElfW(Phdr) & segment : all) {
        if (segment.p_type == PT_LOAD && !isWithin(segment.p_offset, segment.p_filesz)) {
            return true;
        }
    }
    return false;
}

bool ElfFile::isSharedLibrary() const
{
    return at<ElfW(Ehdr)>(0).e_type == ET_DYN;
}

ElfFile::Machine ElfFile::machine() const
{
    const auto header = at<ElfW(Ehdr)>(0);
    return machineIn(reinterpret_cast<const unsigned char *>(&header));
}

ElfFile::Machine ElfFile::ownMachine()
{
    return machineIn(reinterpret_cast<const unsigned char *>(&__ehdr_start));
}

QStringList ElfFile::dynamicTexts(qint64 tag) const
{
    QVector<quint64> places;
    quint64 table = m_size; // nowhere
    const QVector<ElfW(Phdr)> all = segments();
    for (const ElfW(Phdr) & segment : all) {
        if (segment.p_type != PT_DYNAMIC) {
            continue;
        }
        quint64 offset = segment.p_offset;
        for (auto entry = at<ElfW(Dyn)>(offset); entry.d_tag != DT_NULL; entry = at<ElfW(Dyn)>(offset)) {
            if (entry.d_tag == tag) {
                places.append(entry.d_un.d_val);
            } else if (entry.d_tag == DT_STRTAB) {
                table = offsetOf(entry.d_un.d_ptr);
            }
            offset += sizeof entry;
        }
    }
    QStringList texts;
    for (const quint64 place : places) {
        // Up to its NUL, or to as much of it as a name can be long.
        const auto text = at<std::array<char, PATH_MAX>>(table + place);
        texts.append(QFile::decodeName(QByteArray(text.data(), int(qstrnlen(text.data(), PATH_MAX)))));
    }
    return texts;
}

template<class Record>
Record ElfFile::at(quint64 offset) const
{
    Record record = {};
    if (m_file.seek(qint64(offset))) {
        const QByteArray bytes = m_file.read(sizeof record);
        std::memcpy(&record, bytes.constData(), size_t(bytes.size()));
    }
    return record;
}

bool ElfFile::isWithin(quint64 offset, quint64 size) const
{
    return offset <= m_size && size <= m_size - offset;
}

QVector<ElfW(Phdr)> ElfFile::segments() const
{
    const auto header = at<ElfW(Ehdr)>(0);
    QVector<ElfW(Phdr)> segments;
    for (int i = 0; i < header.e_phnum; ++i) {
        segments.append(at<ElfW(Phdr)>(header.e_phoff + quint64(i) * sizeof(ElfW(Phdr))));
    }
    return segments;
}

/// The place in the file of what will stand at @p address, by which alone the dynamic section knows its texts.
quint64 ElfFile::offsetOf(quint64 address) const
{
    const QVector<ElfW(Phdr)> all = segments();
    for (const ElfW(Phdr) & segment : all) {
        if (segment.p_type == PT_LOAD && address >= segment.p_vaddr && address - segment.p_vaddr < segment.p_filesz) {
            return address - segment.p_vaddr + segment.p_offset;
        }
    }
    return m_size; // nowhere
}
