#pragma once

#include <QLocale>

/// Has the application show its texts, and those of Qt's own dialogs, in the language of @p locale: Chinese, whatever
/// the country, and English for all others. Names of interfaces and operations, JSON, and what the kit and the checks
/// report, stay as they are.
void setInterfaceLanguage(const QLocale &locale);
