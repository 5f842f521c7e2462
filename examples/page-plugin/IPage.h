#pragma once

#include <QByteArray>
#include <QWidget>

/**
 * @brief What this example's host asks of a page plugin and its page.
 *
 * It stands in for the interface by which your client takes pages in: put that in its place, the rest stays.
 */
class IPagePlugin
{
public:
    /// A new page, which the caller owns. GUI thread, once the data plugin has registered its managers.
    virtual QWidget *createPage(QWidget *parent) = 0;

protected:
    ~IPagePlugin() = default;
};
Q_DECLARE_INTERFACE(IPagePlugin, "example.IPagePlugin")

/// @brief The page's side for the backend's answers.
class IPage
{
public:
    /// Takes a serialised Tav::NetControl::NetDeviceInfos. Any thread, while the page lives.
    virtual void receiveAnswer(const QByteArray &answer) = 0;

protected:
    ~IPage() = default;
};
Q_DECLARE_INTERFACE(IPage, "example.IPage")
