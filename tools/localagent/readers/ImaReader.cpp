#include "ImaReader.h"

#include "HostFile.h"
#include "TavCountedText.h"
#include "TextBuffer.h"

#include <QList>

namespace
{
const QByteArray imaDirectory = QByteArrayLiteral("/sys/kernel/security/ima");
constexpr qint32 violation = 4;

/// The path of "PATH SIGNATURE" or "PATH". A signature is hexadecimal and begins with its version, 03 or 02.
QByteArray withoutSignature(const QByteArray &text)
{
    const int blank = text.lastIndexOf(' ');
    const QByteArray last = text.mid(blank + 1);
    const bool isSignature = blank > 0 && last.size() >= 16 && (last.startsWith("03") || last.startsWith("02"))
        && QByteArray::fromHex(last).toHex() == last;
    return isSignature ? text.left(blank) : text;
}
}

std::optional<STImaContentAsr> ImaReader::parseLine(const QByteArray &line)
{
    QVector<QByteArray> fields;
    int start = 0;
    for (int field = 0; field < 4; ++field) {
        const int blank = line.indexOf(' ', start);
        if (blank <= start) {
            return std::nullopt;
        }
        fields.append(line.mid(start, blank - start));
        start = blank + 1;
    }
    bool ok = false;
    STImaContentAsr entry{};
    entry.pcr = fields.at(0).toInt(&ok);
    if (!ok) {
        return std::nullopt;
    }
    // The oldest template, "ima", has a SHA-1 digest without the algorithm's name.
    const int colon = fields.at(3).indexOf(':');
    const QByteArray digest = fields.at(3).mid(colon + 1);
    const QByteArray path = line.mid(start).trimmed();
    TextBuffer::copy(entry.templateHash, fields.at(1));
    TextBuffer::copy(entry.templateName, fields.at(2));
    TextBuffer::copy(entry.algorithm, colon > 0 ? fields.at(3).left(colon) : QByteArray("sha1"));
    TextBuffer::copy(entry.fileDigest, digest);
    TextBuffer::copy(entry.path, fields.at(2) == "ima-sig" ? withoutSignature(path) : path);
    entry.state = digest.count('0') == digest.size() ? violation : 0;
    return entry;
}

ImaReader::MeasurementList ImaReader::readList(const QString &root, ReadingNotes &notes)
{
    const QByteArray path = imaDirectory + "/ascii_runtime_measurements";
    const QByteArray content = HostFile::readOrNote(root, path, notes).value_or(QByteArray());
    MeasurementList list;
    int broken = 0;
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray &line : lines) {
        if (line.isEmpty()) {
            continue;
        }
        const auto entry = parseLine(line);
        if (!entry) {
            ++broken;
            continue;
        }
        ++list.total;
        if (list.entries.size() < maxEntries) {
            list.entries.append(*entry);
        }
    }
    if (broken > 0) {
        HostFile::note(notes, path, countedText(broken, "line") + " without a measurement");
    }
    if (list.total > list.entries.size()) {
        HostFile::note(notes, path, countedText(list.total - list.entries.size(), "further entry") + " not listed");
    }
    return list;
}

STImaStateAsr ImaReader::readState(const QString &root, ReadingNotes &notes)
{
    STImaStateAsr state{};
    state.hasTpm = HostFile::exists(root, "/sys/class/tpm/tpm0") ? 1 : 0;
    const auto count = HostFile::readOrNote(root, imaDirectory + "/runtime_measurements_count", notes);
    if (!count) {
        return state;
    }
    // A kernel that measures has at least the entry of its own boot; an empty list means that it does not.
    if (count->trimmed().toLongLong() > 0) {
        const QByteArray commandLine = ' ' + HostFile::attribute(root, "/proc/cmdline") + ' ';
        state.state = 1;
        state.mode = commandLine.contains(" ima_appraise=enforce ") ? 3
            : commandLine.contains(" ima_appraise=log ")            ? 2
                                                                    : 1;
    }
    if (const auto violations = HostFile::readOrNote(root, imaDirectory + "/violations", notes)) {
        state.violations = violations->trimmed().toInt();
    }
    return state;
}
