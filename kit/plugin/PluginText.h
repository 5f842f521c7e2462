#pragma once

#include <QCoreApplication>

/// @brief The texts of TavPluginError, in the language of the program's translators; in English where it has none.
struct PluginText {
    Q_DECLARE_TR_FUNCTIONS(TavPluginError)
};
