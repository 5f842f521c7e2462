#pragma once

#include <QObject>

/**
 * @brief The one operation of the data plugin: it brings the managers into the client's object registry.
 */
class ITavDataPlugin
{
public:
    /**
     * @brief Creates the fifteen managers and registers each under its interface's name followed by "_Tav_ORG".
     *
     * The host calls it once, after loading the plugin; it runs wholly on the calling thread and reports nothing. It
     * does not load any configuration. It keeps no note of having run: a second call registers a second set.
     */
    virtual void registerObj() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and its table holds the operation alone.
    ~ITavDataPlugin() = default;
};

// "Dta" is no slip to be mended: the identifier is compared letter for letter by the client's loader.
Q_DECLARE_INTERFACE(ITavDataPlugin, "Tav_ORG_ITavDtaPlugin")
