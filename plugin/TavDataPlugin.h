#pragma once

#include "ITavDataPlugin.h"

#include <QObject>

/// @brief The plugin's root object: creates the managers and keeps nothing of them.
class TavDataPlugin : public QObject, public ITavDataPlugin
{
    Q_OBJECT
    Q_INTERFACES(ITavDataPlugin)
    Q_PLUGIN_METADATA(IID "Tav_ORG_ITavDtaPlugin") // "Dta" is what the client's loader asks for
public:
    explicit TavDataPlugin(QObject *parent = nullptr);

    void registerObj() override;
};
