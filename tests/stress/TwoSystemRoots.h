#pragma once

#include <QString>
#include <QTemporaryDir>

/**
 * @brief Two system roots, A and B, with a catalogue and check items each, all of whose texts begin with the root's
 * letter; and a broken one, whose files cannot be parsed.
 */
class TwoSystemRoots
{
public:
    static constexpr int funcCount = 3; ///< functions of a catalogue: two at the top, one below the second
    static constexpr int subFuncCount = 3; ///< pages of a catalogue: two of the first function, one of the third
    static constexpr int itemCount = 4; ///< check items, numbered from 1

    TwoSystemRoots();

    /// Lets the client read from A or B.
    void useGood(int seed) const;

    /// Lets the client read from A, B or the broken one.
    void useAny(int seed) const;

    /// The texts of A or B: the letter, the number of the entry, and enough to be copied in parts.
    static QString text(QChar letter, int number);

    /// Whether @p text is text() of this number and of either root; the letter goes to @p letter.
    static bool isText(const QString &text, int number, QChar &letter);

private:
    QTemporaryDir m_dir;
};
