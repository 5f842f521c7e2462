#include "SymbolIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace
{
/// Draws into a square of 16 by 16.
void drawSymbol(QPainter &painter, Symbol symbol, const QColor &colour)
{
    const QPen line(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const auto filled = [&](const QVector<QPointF> &corners) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(corners.constData(), corners.size());
    };
    const auto bar = [&](const QRectF &bar) { painter.fillRect(bar, colour); };
    const auto stroked = [&](const QVector<QPointF> &points) {
        painter.setPen(line);
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(points.constData(), points.size());
    };
    const auto turned = [&](int startDegrees, int spanDegrees) {
        painter.setPen(line);
        painter.setBrush(Qt::NoBrush);
        painter.drawArc(QRectF(3, 3, 10, 10), startDegrees * 16, spanDegrees * 16);
    };
    switch (symbol) {
    case Symbol::Feed: // into a tray
        stroked({{8, 2}, {8, 9}});
        stroked({{5, 6.5}, {8, 9.5}, {11, 6.5}});
        stroked({{2.5, 10}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 10}});
        break;
    case Symbol::Repeat: // a clock
        painter.setPen(line);
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QRectF(2, 2, 12, 12));
        stroked({{8, 4.8}, {8, 8}, {10.4, 9.6}});
        break;
    case Symbol::Stop:
        bar(QRectF(4, 4, 8, 8));
        break;
    case Symbol::Record:
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xd0, 0x30, 0x30, colour.alpha()));
        painter.drawEllipse(QRectF(3, 3, 10, 10));
        break;
    case Symbol::Open: // a folder
        stroked({{2, 12.5}, {2, 4}, {6, 4}, {7.5, 5.5}, {14, 5.5}, {14, 12.5}, {2, 12.5}});
        break;
    case Symbol::Play:
        filled({{4.5, 3}, {13, 8}, {4.5, 13}});
        break;
    case Symbol::Pause:
        bar(QRectF(4, 3, 3, 10));
        bar(QRectF(9, 3, 3, 10));
        break;
    case Symbol::Step:
        filled({{3, 3}, {10, 8}, {3, 13}});
        bar(QRectF(11, 3, 2.2, 10));
        break;
    case Symbol::Loop:
        turned(60, 250);
        filled({{9.5, 0.8}, {14, 4}, {9, 6.2}});
        break;
    case Symbol::Save: // out of a tray
        stroked({{8, 9.5}, {8, 2.5}});
        stroked({{5, 5}, {8, 2}, {11, 5}});
        stroked({{2.5, 10}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 10}});
        break;
    case Symbol::Clear:
        stroked({{4, 4}, {12, 12}});
        stroked({{12, 4}, {4, 12}});
        break;
    case Symbol::Add:
        stroked({{8, 3}, {8, 13}});
        stroked({{3, 8}, {13, 8}});
        break;
    case Symbol::Warning:
        stroked({{8, 2.5}, {14, 13}, {2, 13}, {8, 2.5}});
        stroked({{8, 6.5}, {8, 9.2}});
        stroked({{8, 11.2}, {8, 11.3}});
        break;
    }
}

/// @brief Draws a symbol when it is wanted, so that it follows a change of the palette.
class SymbolEngine : public QIconEngine
{
public:
    explicit SymbolEngine(Symbol symbol) : m_symbol(symbol)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        if (mode == QIcon::Disabled) {
            painter->setOpacity(0.5);
        }
        drawSymbol(*painter, m_symbol, QGuiApplication::palette().color(group, QPalette::ButtonText));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override
    {
        return new SymbolEngine(m_symbol);
    }

private:
    const Symbol m_symbol;
};
}

QIcon symbolIcon(Symbol symbol)
{
    return QIcon(new SymbolEngine(symbol));
}
