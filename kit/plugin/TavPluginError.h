#pragma once

#include <QString>

#include <stdexcept>

/// @brief Why a file cannot be taken for the data plugin, or for a page plugin. what() is one line: file, problem and
/// advice.
class TavPluginError : public std::runtime_error
{
public:
    /// In the order in which they are looked for: of several, the first is reported.
    enum class Kind {
        NoSuchFile,
        NotAFile, ///< a directory, a pipe, a device
        NotReadable, ///< for want of rights, as a rule
        NotALibrary,
        CutOff, ///< a library that ends too early, such as one that was not copied completely
        OtherMachine,
        OtherWordSize,
        NotAPlugin, ///< a library that is no Qt plugin
        OtherPlugin, ///< a Qt plugin with another identifier
        OtherQt, ///< built with a Qt newer than the one that runs, or of another major version
        MissingLibrary,
        UndefinedSymbol,
        NotLoadable, ///< for another reason of the dynamic linker, which problem() has
        NoInterface, ///< its root object is no ITavDataPlugin
        Exception, ///< its registerObj() has thrown one
        WrongManagers, ///< it does not register every manager
        NoPages, ///< a page plugin that registers no controller
    };

    /// What the file is wanted for.
    enum class Role { DataPlugin, PagePlugin };

    /// Says that @p problem is what is wrong with @p file.
    TavPluginError(Kind kind, const QString &file, const QString &problem, Role role = Role::DataPlugin);

    /// What is wrong, for whoever decides by it.
    [[nodiscard]] Kind kind() const
    {
        return m_kind;
    }

    /// The file as it was named.
    [[nodiscard]] QString file() const
    {
        return m_file;
    }

    [[nodiscard]] QString problem() const; ///< what is wrong with the file
    [[nodiscard]] QString effect() const; ///< what that means for a client
    [[nodiscard]] QString advice() const; ///< what to do about it

    /// Whether the advice is to name another file, so that a program can add how its user does that.
    [[nodiscard]] bool wantsAnotherFile() const;

private:
    Kind m_kind;
    QString m_file;
    QString m_problem;
    Role m_role;
};
