#pragma once

#include <QString>

#include <stdexcept>

/// @brief What is wrong with a call by name: where in its arguments, and what to write instead.
class TavCallError : public std::runtime_error
{
public:
    /// Says that @p problem is what is wrong at @p path.
    TavCallError(const QString &path, const QString &problem)
        : std::runtime_error((path.isEmpty() ? problem : path + QLatin1String(": ") + problem).toStdString())
        , m_path(path)
        , m_problem(problem)
    {
    }

    /// JSON pointer into the arguments, such as "/0/userName"; empty for the call as a whole.
    [[nodiscard]] QString path() const
    {
        return m_path;
    }

    /// What is wrong there, without the place.
    [[nodiscard]] QString problem() const
    {
        return m_problem;
    }

private:
    QString m_path;
    QString m_problem;
};
