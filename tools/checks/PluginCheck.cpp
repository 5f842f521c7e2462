#include "PluginCheck.h"

#include "TavPluginHost.h"

namespace
{
FindingCode codeOf(TavPluginError::Kind kind)
{
    using Kind = TavPluginError::Kind;
    switch (kind) {
    case Kind::NoSuchFile:
        return FindingCode::NoPluginFile;
    case Kind::NotAFile:
        return FindingCode::PluginNotAFile;
    case Kind::NotReadable:
        return FindingCode::NotReadable;
    case Kind::NotALibrary:
        return FindingCode::PluginNotALibrary;
    case Kind::CutOff:
        return FindingCode::PluginCutOff;
    case Kind::OtherMachine:
        return FindingCode::PluginForOtherMachine;
    case Kind::OtherWordSize:
        return FindingCode::PluginOfOtherWordSize;
    case Kind::NotAPlugin:
        return FindingCode::NotAPlugin;
    case Kind::OtherPlugin:
        return FindingCode::OtherPlugin;
    case Kind::OtherQt:
        return FindingCode::PluginOfOtherQt;
    case Kind::MissingLibrary:
        return FindingCode::PluginLacksLibrary;
    case Kind::UndefinedSymbol:
        return FindingCode::PluginLacksSymbol;
    case Kind::NotLoadable:
        return FindingCode::PluginNotLoadable;
    case Kind::NoInterface:
        return FindingCode::PluginWithoutInterface;
    case Kind::WrongManagers:
        return FindingCode::PluginWithOtherManagers;
    }
    Q_UNREACHABLE();
}
}

Findings checkPlugin(const QString &file)
{
    try {
        const TavPluginHost host(file);
        return {};
    } catch (const TavPluginError &error) {
        return {Finding::ofFile(codeOf(error.kind()), file, error.problem(), error.effect(), pluginAdvice(error))};
    }
}

QString pluginAdvice(const TavPluginError &error)
{
    return error.wantsAnotherFile() ? error.advice() + " with --plugin" : error.advice();
}
