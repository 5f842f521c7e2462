#include "TavPluginError.h"

#include "ElfFile.h"
#include "PluginText.h"

#include <QVersionNumber>

namespace
{
QString adviceFor(TavPluginError::Kind kind, TavPluginError::Role role)
{
    using Kind = TavPluginError::Kind;
    switch (kind) {
    case Kind::NoSuchFile:
        return PluginText::tr("install the plugin, or name its file");
    case Kind::NotAFile:
    case Kind::NotALibrary:
    case Kind::NotAPlugin:
    case Kind::OtherPlugin:
    case Kind::NoInterface:
    case Kind::NoPages:
        return role == TavPluginError::Role::DataPlugin ? PluginText::tr("name libTavDataPlugin.so")
                                                        : PluginText::tr("name a page plugin");
    case Kind::NotReadable:
        return PluginText::tr("let this user read it");
    case Kind::CutOff:
        return PluginText::tr("install the plugin again");
    case Kind::OtherMachine:
    case Kind::OtherWordSize:
        return PluginText::tr("install the plugin for %1").arg(ElfFile::ownMachine().name());
    case Kind::OtherQt: {
        const QVersionNumber running = QVersionNumber::fromString(qVersion());
        return PluginText::tr("build the plugin with Qt %1.%2").arg(running.majorVersion()).arg(running.minorVersion());
    }
    case Kind::MissingLibrary:
    case Kind::NotLoadable:
        return PluginText::tr("install what it lacks");
    case Kind::UndefinedSymbol:
        return PluginText::tr("install the libraries that it was built with");
    case Kind::Exception:
        return PluginText::tr("mend the plugin, or leave it out");
    case Kind::WrongManagers:
        return PluginText::tr("install the plugin that belongs to this client");
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
        return PluginText::tr("no client for %1 can load it").arg(ElfFile::ownMachine().name());
    case Kind::OtherQt:
        return PluginText::tr("Qt refuses to load it: it takes plugins of its own or an earlier minor version");
    case Kind::WrongManagers:
        return PluginText::tr("pages do not find what they look up");
    default:
        return m_role == Role::DataPlugin ? PluginText::tr("the client has none of the managers")
                                          : PluginText::tr("the client has none of its pages");
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
