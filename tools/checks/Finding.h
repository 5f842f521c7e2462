#pragma once

#include "FindingKind.h"
#include "TavJsonText.h"

#include <QString>
#include <QVector>

/// @brief A mistake in a file of an installation: where it stands and what to do about it.
struct Finding {
    /// A mistake of the file or directory as a whole.
    static Finding ofFile(FindingCode code, const QString &file, const QString &problem, const QString &effect,
                          const QString &advice);

    /// A mistake at a place of the file's text.
    static Finding atPlace(FindingCode code, const QString &file, const TextPlace &place, const QString &problem,
                           const QString &effect, const QString &advice);

    /// A mistake of the value at a JSON pointer; located() says in which file that is, and where.
    static Finding ofValue(FindingCode code, const QString &path, const QString &problem, const QString &effect,
                           const QString &advice);

    /// That @p content, which @p text has tried to read, is no JSON.
    static Finding ofNoJson(const QString &file, const QByteArray &content, const TavJsonText &text,
                            const QString &effect);

    const FindingKind &kind() const
    {
        return kindOf(code);
    }

    FindingCode code;
    QString file;
    TextPlace place; ///< in the file; none when the finding is about the file as a whole
    TextPlace inText; ///< in the JSON text that the file holds in Base64; none when it does not
    TextRange range = {}; ///< of the value in the JSON text; none when there is no such value
    TextRange key = {}; ///< of its key there, with the quotes
    QString path; ///< JSON pointer of the value; empty for the document, and for files that are not JSON
    QString problem; ///< what is wrong
    QString effect; ///< what the plugin makes of it
    QString advice; ///< what to write instead
    QString fix; ///< the text for the place of a mistyped key, of the value otherwise; empty without one safe answer
};

using Findings = QVector<Finding>;

/// @p findings on values of the JSON text that @p file holds, each with its place in it; in the order of the text.
Findings placed(Findings findings, const QString &file, const TavJsonText &text);

/// The same, together with what is wrong with the text itself, such as keys that stand there twice.
Findings located(Findings findings, const QString &file, const TavJsonText &text);
