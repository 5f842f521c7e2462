#pragma once

#include "TextFile.h"

// The data plugin's file with one thing wrong in it.

/// Whether it is built for AArch64, otherwise for x86-64.
inline bool isPluginForArm()
{
    return contentOf(TAV_PLUGIN_FILE)[18] == char(183);
}

inline QByteArray pluginForOtherMachine()
{
    QByteArray plugin = contentOf(TAV_PLUGIN_FILE);
    plugin[18] = char(isPluginForArm() ? 62 : 183);
    return plugin;
}

inline QByteArray pluginOfOtherWordSize()
{
    QByteArray plugin = contentOf(TAV_PLUGIN_FILE);
    plugin[4] = 1;
    return plugin;
}

inline QByteArray pluginOfNewerQt()
{
    QByteArray plugin = contentOf(TAV_PLUGIN_FILE);
    plugin[plugin.indexOf("QTMETADATA !") + 14] = 99; // behind the mark: format, major version, minor version
    return plugin;
}

inline QByteArray pluginWithoutLibraries()
{
    return contentOf(TAV_PLUGIN_FILE)
        .replace("libTavCommon.so.1", "libTavComm0n.so.1")
        .replace("libstdc++.so.6", "libstdc--.so.6");
}

/// Which the dynamic linker refuses in words of its own.
inline QByteArray pluginOfUnknownSymbolVersion()
{
    return contentOf(TAV_PLUGIN_FILE).replace(QByteArray("\0Qt_5\0", 6), QByteArray("\0Qt_9\0", 6));
}

inline QByteArray pluginCutOff()
{
    return contentOf(TAV_PLUGIN_FILE).chopped(1);
}
