#include "MeasureReader.h"

#include "HostFile.h"
#include "TextBuffer.h"

namespace
{
constexpr int trusted = 1;
constexpr int changed = 2;
constexpr int unknown = 3;
}

QVector<QByteArray> MeasureReader::programs()
{
    return {"/usr/bin/bash", "/usr/bin/chmod", "/usr/bin/chown",  "/usr/bin/dash",      "/usr/bin/login",
            "/usr/bin/ls",   "/usr/bin/mount", "/usr/bin/passwd", "/usr/bin/ps",        "/usr/bin/ssh",
            "/usr/bin/su",   "/usr/bin/sudo",  "/usr/bin/umount", "/usr/bin/systemctl", "/usr/lib/systemd/systemd",
            "/usr/sbin/sshd"};
}

QVector<QByteArray> MeasureReader::presentPrograms(const QString &root,
                                                   const QHash<QByteArray, QByteArray> &packageDigests)
{
    QVector<QByteArray> present;
    const QVector<QByteArray> paths = programs();
    for (const QByteArray &path : paths) {
        if (packageDigests.contains(path) || HostFile::exists(root, path)) {
            present.append(path);
        }
    }
    return present;
}

Tav::Measure::ImaContent MeasureReader::measure(const QString &root, const QByteArray &path,
                                                const QHash<QByteArray, QByteArray> &packageDigests, qint64 now,
                                                ReadingNotes &notes)
{
    Tav::Measure::ImaContent entry;
    entry.set_path(TextBuffer::message(path));
    entry.set_measure_time(now);
    const auto digests = HostFile::digestsOrNote(root, path, notes);
    if (!digests) {
        entry.set_state(0);
        return entry;
    }
    const auto expected = packageDigests.constFind(path);
    if (expected == packageDigests.constEnd()) {
        entry.set_state(unknown);
        entry.set_algorithm("sha256");
        entry.set_file_digest(digests->sha256.toStdString());
    } else {
        // Packages list MD5, so that is what was compared: no other digest is known to be the expected one.
        entry.set_state(*expected == digests->md5 ? trusted : changed);
        entry.set_algorithm("md5");
        entry.set_file_digest(digests->md5.toStdString());
        entry.set_expected_digest(TextBuffer::message(*expected));
    }
    return entry;
}

Tav::Measure::ImaCountAsr MeasureReader::countsOf(const Tav::Measure::ImaContentAsr &list)
{
    int spread[unknown + 1] = {};
    for (const auto &entry : list.entries()) {
        ++spread[entry.state()];
    }
    Tav::Measure::ImaCountAsr counts;
    counts.set_total(list.entries_size());
    counts.set_trusted(spread[trusted]);
    counts.set_changed(spread[changed]);
    counts.set_unknown(spread[unknown]);
    return counts;
}

Tav::Measure::CompleteMeasureAsr MeasureReader::resultOf(const QString &root, const Tav::Measure::ImaContentAsr &list)
{
    Tav::Measure::CompleteMeasureAsr result;
    int missingCount = 0;
    for (const auto &entry : list.entries()) {
        if (entry.state() == trusted) {
            continue;
        }
        auto *const item = result.add_items();
        item->set_path(entry.path());
        item->set_algorithm(entry.algorithm());
        item->set_digest(entry.file_digest());
        item->set_expected_digest(entry.expected_digest());
        const auto status = HostFile::status(root, QByteArray::fromStdString(entry.path()));
        if (status) {
            item->set_size(static_cast<quint64>(status->st_size));
            item->set_modify_time(status->st_mtim.tv_sec);
        }
        const bool measured = entry.has_file_digest();
        missingCount += !measured && !status ? 1 : 0;
        item->set_state(entry.state() == changed ? 1 : entry.state() == unknown ? 3 : status ? 4 : 2);
    }
    const Tav::Measure::ImaCountAsr counts = countsOf(list);
    const int measuredCount = counts.trusted() + counts.changed() + counts.unknown();
    result.set_measured_count(measuredCount);
    result.set_changed_count(counts.changed());
    result.set_missing_count(missingCount);
    result.set_added_count(counts.unknown());
    result.set_state(measuredCount == 0 ? 4 : result.items_size() == 0 ? 2 : 3);
    return result;
}
