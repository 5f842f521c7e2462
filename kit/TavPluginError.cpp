#include "TavPluginError.h"

#include "ElfFile.h"

#include <QVersionNumber>

namespace
{
QString adviceFor(TavPluginError::Kind kind, TavPluginError::Role role)
{
    using Kind = TavPluginError::Kind;
    switch (kind) {
    case Kind::NoSuchFile:
        return "install the plugin, or name its file";
    case Kind::NotAFile:
    case Kind::NotALibrary:
    case Kind::NotAPlugin:
    case Kind::OtherPlugin:
    case Kind::NoInterface:
    case Kind::NoPages:
        return role == TavPluginError::Role::DataPlugin ? "name libTavDataPlugin.so" : "name a page plugin";
    case Kind::NotReadable:
        return "let this user read it";
    case Kind::CutOff:
        return "install the plugin again";
    case Kind::OtherMachine:
    case Kind::OtherWordSize:
        return "install the plugin for " + ElfFile::ownMachine().name();
    case Kind::OtherQt: {
        const QVersionNumber running = QVersionNumber::fromString(qVersion());
        return QString("build the plugin with Qt %1.%2").arg(running.majorVersion()).arg(running.minorVersion());
    }
    case Kind::MissingLibrary:
    case Kind::NotLoadable:
        return "install what it lacks";
    case Kind::UndefinedSymbol:
        return "install the libraries that it was built with";
    case Kind::Exception:
        return "mend the plugin, or leave it out";
    case Kind::WrongManagers:
        return "install the plugin that belongs to this client";
    }
    Q_UNREACHABLE();
}
}

TavPluginError::TavPluginError(Kind kind, const QString &file, const QString &problem, Role role)
    : std::runtime_error((file + ": " + problem + "; " + adviceFor(kind, role)).toStdString())
    , m_kind(kind)
    , m_file(file)
    , m_problem(problem)
    , m_role(role)
{
}

QString TavPluginError::problem() const
{
    return m_problem;
}

QString TavPluginError::effect() const
{
    switch (m_kind) {
    case Kind::OtherMachine:
    case Kind::OtherWordSize:
        return QString("no client for %1 can load it").arg(ElfFile::ownMachine().name());
    case Kind::OtherQt:
        return "Qt refuses to load it: it takes plugins of its own or an earlier minor version";
    case Kind::WrongManagers:
        return "pages do not find what they look up";
    default:
        return m_role == Role::DataPlugin ? "the client has none of the managers" : "the client has none of its pages";
    }
}

QString TavPluginError::advice() const
{
    return adviceFor(m_kind, m_role);
}

bool TavPluginError::wantsAnotherFile() const
{
    switch (m_kind) {
    case Kind::NoSuchFile:
    case Kind::NotAFile:
    case Kind::NotALibrary:
    case Kind::NotAPlugin:
    case Kind::OtherPlugin:
    case Kind::NoInterface:
    case Kind::NoPages:
        return true;
    default:
        return false;
    }
}
