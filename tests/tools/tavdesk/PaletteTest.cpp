#include "TestWindow.h"

#include "FieldEdit.h"
#include "MarkColor.h"
#include "ProblemView.h"
#include "RecordForm.h"

#include <QDockWidget>
#include <QHash>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace
{
QPalette darkPalette()
{
    QPalette dark(QColor(45, 45, 45), QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::AlternateBase, QColor(40, 40, 40));
    return dark;
}

/// @brief An application that is dark as long as this lives.
class Darkness
{
public:
    Darkness()
    {
        QApplication::setPalette(darkPalette());
    }

    ~Darkness()
    {
        QApplication::setPalette(m_before);
    }

    Q_DISABLE_COPY(Darkness)

private:
    const QPalette m_before = QApplication::palette();
};

/// How bright the eye sees a colour, from 0 to 1.
double luminanceOf(const QColor &colour)
{
    const auto linear
        = [](double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// From 1, for the same colour, to 21, for black and white.
double contrastOf(const QColor &one, const QColor &other)
{
    const double first = luminanceOf(one) + 0.05;
    const double second = luminanceOf(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

/// The strongest contrast in @p widget, as it is drawn in its window, between its ground and anything on it.
double contrastIn(const QWidget &widget)
{
    QWidget &window = *widget.window();
    const QImage picture
        = window.grab({widget.mapTo(&window, QPoint()), widget.size()}).toImage().convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    QRgb ground = picture.pixel(0, 0);
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        ground = *count > counts[ground] ? count.key() : ground;
    }
    double contrast = 1;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        contrast = std::max(contrast, contrastOf(ground, count.key()));
    }
    return contrast;
}

constexpr double readable = 4.5; // what the guidelines for accessible content ask of texts

/// Expects that every text of @p window can be read.
void expectReadable(const QWidget &window)
{
    int seen = 0;
    const QList<QLabel *> labels = window.findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (label->text().trimmed().isEmpty() || !label->isEnabled()
            || label->visibleRegion().boundingRect() != label->rect()) {
            continue; // nothing of it, or not all, is seen
        }
        ++seen;
        EXPECT_GE(contrastIn(*label), readable) << label->text().toStdString();
    }
    EXPECT_GT(seen, 0);
}
}

TEST(Palette, TextsOfTheDarkWindowCanBeRead)
{
    const Darkness darkness;
    const TestWindow client;
    for (const auto page : {CTavSubFuncTypeHeader::SubFunc_serverResourceInfo, CTavSubFuncTypeHeader::SubFunc_LogAudit,
                            CTavSubFuncTypeHeader::SubFunc_PrincipalSettings}) {
        client.click(page);
        ASSERT_TRUE(client.waitForPage(page));
        QTest::qWait(100);
        const QList<QDockWidget *> docks = client.window->findChildren<QDockWidget *>();
        for (QDockWidget *const dock : docks) {
            dock->raise();
            QTest::qWait(10);
            expectReadable(*client.window);
        }
    }
}

TEST(Palette, TextsFollowAPaletteThatBecomesDark)
{
    QWidget window;
    const RecordType &type = *recordTypeOf("STResourceInfoAsr");
    auto *const form = new RecordForm("info", type);
    auto *const problem = new ProblemView("what does not work", "why", "what to do");
    auto *const layout = new QVBoxLayout(&window);
    layout->addWidget(form);
    layout->addWidget(problem);
    form->findChild<FieldEdit *>()->setProblem("expected a whole number");
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const auto expectSign = [problem] {
        const QList<QLabel *> labels = problem->findChildren<QLabel *>();
        for (const QLabel *const label : labels) {
            if (label->pixmap(Qt::ReturnByValue).isNull()) {
                continue;
            }
            EXPECT_GE(contrastIn(*label), 3);
            return;
        }
        ADD_FAILURE() << "it has no sign";
    };
    expectReadable(window);
    expectSign();
    {
        const Darkness darkness;
        QTest::qWait(20);
        expectReadable(window);
        expectSign();
    }
    QTest::qWait(20);
    expectReadable(window);
    expectSign();
}

TEST(Palette, MarksOfChangesLeaveTextsReadableOnBothGrounds)
{
    for (const QPalette &palette : {QApplication::style()->standardPalette(), darkPalette()}) {
        const QColor ground = palette.color(QPalette::Base);
        const QColor mark = markColor(1);
        const auto mixed
            = [&](double under, double over) { return under * (1 - mark.alphaF()) + over * mark.alphaF(); };
        const QColor marked = QColor::fromRgbF(mixed(ground.redF(), mark.redF()), mixed(ground.greenF(), mark.greenF()),
                                               mixed(ground.blueF(), mark.blueF()));
        EXPECT_GE(contrastOf(marked, palette.color(QPalette::Text)), readable);
        EXPECT_GE(contrastOf(marked, ground), 1.3) << "and are seen themselves";
    }
}
