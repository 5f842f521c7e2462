#include "UnifiedDiff.h"

#include <algorithm>

namespace
{
constexpr int context = 3; // lines around what is changed

/// @brief Lines of a text that are replaced.
struct Block {
    int first; ///< counted from 0
    int end; ///< behind the last
    QVector<TextEdit> edits;
};

/// @brief A text by its lines, each with its end.
class Lines
{
public:
    explicit Lines(const QByteArray &text) : m_text(text)
    {
        for (int end = 0; end < text.size();) {
            m_starts.append(end);
            const int lineEnd = text.indexOf('\n', end);
            end = lineEnd < 0 ? text.size() : lineEnd + 1;
        }
        m_starts.append(text.size());
    }

    int count() const
    {
        return m_starts.size() - 1;
    }

    int startOf(int line) const
    {
        return m_starts[line];
    }

    /// The line in which the byte at @p offset stands.
    int at(int offset) const
    {
        return int(std::upper_bound(m_starts.begin(), m_starts.end() - 1, offset) - m_starts.begin()) - 1;
    }

    /// The lines from @p first to before @p end, each behind @p mark.
    QByteArray marked(char mark, int first, int end) const
    {
        QByteArray lines;
        for (int line = first; line < end; ++line) {
            const QByteArray text = m_text.mid(m_starts[line], m_starts[line + 1] - m_starts[line]);
            lines += mark + text + (text.endsWith('\n') ? "" : "\n\\ No newline at end of file\n");
        }
        return lines;
    }

private:
    QByteArray m_text;
    QVector<int> m_starts; // of each line, and behind the last
};

/// The lines that @p edits are in; those that touch are taken together.
QVector<Block> blocksOf(const Lines &lines, const QVector<TextEdit> &edits)
{
    QVector<Block> blocks;
    for (const TextEdit &edit : edits) {
        const int first = lines.at(edit.range.offset);
        const int end = lines.at(edit.range.offset + qMax(1, edit.range.length) - 1) + 1;
        if (blocks.isEmpty() || first > blocks.last().end) {
            blocks.append({first, end, {}});
        }
        blocks.last().end = end;
        blocks.last().edits.append(edit);
    }
    return blocks;
}

QByteArray replacement(const QByteArray &text, const Lines &lines, const Block &block)
{
    const int start = lines.startOf(block.first);
    QVector<TextEdit> edits = block.edits;
    for (TextEdit &edit : edits) {
        edit.range.offset -= start;
    }
    return edited(text.mid(start, lines.startOf(block.end) - start), edits);
}
}

QByteArray unifiedDiff(const QByteArray &name, const QByteArray &text, const QVector<TextEdit> &edits)
{
    const Lines lines(text);
    const QVector<Block> blocks = blocksOf(lines, edits);
    QByteArray diff = blocks.isEmpty() ? QByteArray() : "--- " + name + "\n+++ " + name + '\n';
    int added = 0; // lines, by the hunks before
    for (int next = 0; next < blocks.size();) {
        const int first = qMax(0, blocks[next].first - context);
        QByteArray body;
        int done = first;
        int addedHere = 0;
        do { // blocks whose contexts touch are one hunk
            const Block &block = blocks[next];
            const Lines replaced(replacement(text, lines, block));
            body += lines.marked(' ', done, block.first) + lines.marked('-', block.first, block.end)
                + replaced.marked('+', 0, replaced.count());
            addedHere += replaced.count() - (block.end - block.first);
            done = block.end;
            ++next;
        } while (next < blocks.size() && blocks[next].first - done <= 2 * context);
        const int end = qMin(lines.count(), done + context);
        body += lines.marked(' ', done, end);
        diff += QString("@@ -%1,%2 +%3,%4 @@\n")
                    .arg(first + 1)
                    .arg(end - first)
                    .arg(first + 1 + added)
                    .arg(end - first + addedHere)
                    .toUtf8()
            + body;
        added += addedHere;
    }
    return diff;
}
