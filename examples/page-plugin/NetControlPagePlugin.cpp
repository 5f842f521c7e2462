#include "ITavDataPlugin.h"
#include "NetControlController.h"
#include "TavObjectMgr.h"

/// @brief The plugin's root object: registers the controller.
class NetControlPagePlugin : public QObject, public ITavDataPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Tav_ORG_ITavDtaPlugin")
    Q_INTERFACES(ITavDataPlugin)
public:
    void registerObj() override
    {
        // Under the name that the catalogue gives the page's controller. The registry owns it.
        TavGlobalInfoMgr::getObjectMgr()->registerObject(tavManagerKey("ITavHostInfoController"),
                                                         new NetControlController, true);
    }
};

#include "NetControlPagePlugin.moc"
