#pragma once

#include "TavJsonText.h"

#include <QString>
#include <QVector>

/// @brief A mistake in a file of an installation: where it stands and what to do about it.
struct Finding {
    /// A mistake of the file or directory as a whole.
    static Finding ofFile(const QString &file, const QString &problem, const QString &effect, const QString &advice)
    {
        return {file, {}, {}, problem, effect, advice};
    }

    /// A mistake at a place of the file's text.
    static Finding atPlace(const QString &file, const TextPlace &place, const QString &problem, const QString &effect,
                           const QString &advice)
    {
        return {file, place, {}, problem, effect, advice};
    }

    /// A mistake of the value at a JSON pointer; located() says in which file that is, and where.
    static Finding ofValue(const QString &path, const QString &problem, const QString &effect, const QString &advice)
    {
        return {{}, {}, path, problem, effect, advice};
    }

    QString file;
    TextPlace place; ///< of the value; none when the finding is about the file as a whole
    QString path; ///< JSON pointer of the value; empty for the document, and for files that are not JSON
    QString problem; ///< what is wrong
    QString effect; ///< what the plugin makes of it
    QString advice; ///< what to write instead
    bool decoded = false; ///< the place is one of the text that the file holds in Base64
};

using Findings = QVector<Finding>;

/// @p findings on values of the JSON text that @p file holds, each with its place in it, together with the keys that
/// stand there twice; in the order of the text.
Findings located(Findings findings, const QString &file, const TavJsonText &text);
