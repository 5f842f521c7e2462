#include "NetControlPage.h"

/// @brief The plugin's root object: makes the page.
class NetControlPagePlugin : public QObject, public IPagePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "example.IPagePlugin")
    Q_INTERFACES(IPagePlugin)
public:
    QWidget *createPage(QWidget *parent) override
    {
        return new NetControlPage(parent);
    }
};

#include "NetControlPagePlugin.moc"
