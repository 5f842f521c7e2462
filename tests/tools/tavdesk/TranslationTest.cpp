#include "InterfaceLanguage.h"
#include "PageValues.h"
#include "PrintQString.h"
#include "Program.h"
#include "TestWindow.h"
#include "TextFile.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>
#include <QXmlStreamReader>

namespace
{
const QString catalogues = QStringLiteral(TAV_SOURCE_DIR "/tools/tavdesk/i18n/");

/// Marks every text that is looked up; what is shown without the mark is in no catalogue.
class MarkingTranslator : public QTranslator
{
public:
    static constexpr char16_t mark = u'§';

    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QChar(mark) + QString::fromUtf8(source);
    }

    bool isEmpty() const override
    {
        return false;
    }
};

/// @brief Something that a widget shows, and where.
struct ShownText {
    QString text;
    QString where;
};

void append(QVector<ShownText> &texts, const QObject &object, const QString &text)
{
    texts.append({text, QString::fromLatin1(object.metaObject()->className()) + ' ' + object.objectName()});
}

/// The texts of the interface itself; not what is in tables, trees and fields, which is data.
QVector<ShownText> textsOf(const QWidget &window)
{
    QVector<ShownText> texts;
    append(texts, window, window.windowTitle());
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (const QWidget *const widget : widgets) {
        append(texts, *widget, widget->toolTip());
        append(texts, *widget, widget->accessibleName());
        if (const auto *const button = qobject_cast<const QAbstractButton *>(widget)) {
            append(texts, *button, button->text());
        } else if (const auto *const line = qobject_cast<const QLineEdit *>(widget)) {
            append(texts, *line, line->placeholderText());
        } else if (const auto *const dock = qobject_cast<const QDockWidget *>(widget)) {
            append(texts, *dock, dock->windowTitle());
        } else if (const auto *const header = qobject_cast<const QHeaderView *>(widget)) {
            for (int i = 0; header->model() && i < header->count() && header->orientation() == Qt::Horizontal; ++i) {
                append(texts, *header, header->model()->headerData(i, Qt::Horizontal).toString());
            }
        }
    }
    const QList<QAction *> actions = window.findChildren<QAction *>();
    for (const QAction *const action : actions) {
        append(texts, *action, action->text());
        append(texts, *action, action->toolTip());
    }
    return texts;
}

/// The names of fields that have a translation, in words.
QStringList translatedFields()
{
    QFile file(catalogues + "fields_zh_CN.ts");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList names;
    for (QXmlStreamReader reader(&file); !reader.atEnd();) {
        if (reader.readNextStartElement() && reader.name() == QLatin1String("source")) {
            names.append(reader.readElementText());
        }
    }
    return names;
}
}

TEST(Translation, KnowsEveryTextOfTheSources)
{
    const QTemporaryDir copies;
    for (const QString &name : {QStringLiteral("tavdesk_en.ts"), QStringLiteral("tavdesk_zh_CN.ts")}) {
        ASSERT_TRUE(QFile::copy(catalogues + name, copies.filePath(name)));
    }
    const Program update({catalogues + "update.sh", copies.path()});
    ASSERT_EQ(update.exitCode, 0) << update.errors.toStdString();
    for (const QString &name : {QStringLiteral("tavdesk_en.ts"), QStringLiteral("tavdesk_zh_CN.ts")}) {
        const QString catalogue = QString::fromUtf8(contentOf(copies.filePath(name)));
        EXPECT_EQ(catalogue, QString::fromUtf8(contentOf(catalogues + name))) << "run tools/tavdesk/i18n/update.sh";
        EXPECT_FALSE(catalogue.contains(QRegularExpression("type=\"(unfinished|vanished|obsolete)\"")))
            << name.toStdString();
        EXPECT_FALSE(catalogue.contains(QRegularExpression("<numerusform>[^<]*\\(s\\)")))
            << name.toStdString() << ": one form for one, one for many";
    }
}

TEST(Translation, KnowsEveryFieldThatPagesShow)
{
    const TestWindow window;
    QStringList names;
    const auto pages = QMetaEnum::fromType<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
    for (int i = 0; i < pages.keyCount(); ++i) {
        for (const PageValue &value : valuesOf(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_(pages.value(i)))) {
            const QVector<PartTable> parts = value.read();
            for (const PartTable &part : parts) {
                names += part.part.isEmpty() ? QString() : ValueColumn{part.part, {}}.title();
                for (const ValueColumn &column : part.table->columns()) {
                    names += column.title().split(QStringLiteral(": "));
                }
            }
        }
    }
    names.removeAll(QString());
    const QStringList translated = translatedFields();
    const QSet<QString> shown(names.begin(), names.end());
    const QSet<QString> known(translated.begin(), translated.end());
    EXPECT_EQ((shown - known).values(), QStringList()) << "shown without a translation";
    EXPECT_EQ((known - shown).values(), QStringList()) << "translated and never shown";
    EXPECT_EQ(known.size(), translated.size()) << "translated twice";
}

TEST(Translation, ReachesEveryTextOfTheWindow)
{
    MarkingTranslator marking;
    QCoreApplication::installTranslator(&marking);
    const TestWindow window;
    for (const ShownText &shown : textsOf(*window.window)) {
        const bool hasLetters = shown.text.contains(QRegularExpression("[A-Za-z]{2}"));
        EXPECT_TRUE(!hasLetters || shown.text.contains(QChar(MarkingTranslator::mark)))
            << shown.where.toStdString() << ": " << shown.text.toStdString();
    }
    QCoreApplication::removeTranslator(&marking);
}

TEST(Translation, OfButtonsAndTitlesIsNotCutOff)
{
    setInterfaceLanguage(QLocale(QLocale::Chinese, QLocale::China));
    const TestWindow window;
    EXPECT_EQ(window.window->windowTitle(), QStringLiteral("开发用安全客户端"));
    const QList<QAbstractButton *> buttons = window.window->findChildren<QAbstractButton *>();
    for (const QAbstractButton *const button : buttons) {
        if (button->isVisible() && !button->text().isEmpty()) {
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
        }
    }
}
