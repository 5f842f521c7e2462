#include "CatalogueProblem.h"
#include "CellText.h"
#include "FactsForm.h"
#include "FindingsDialog.h"
#include "InterfaceLanguage.h"
#include "PageValues.h"
#include "PrintQString.h"
#include "ProblemView.h"
#include "Program.h"
#include "RecordForm.h"
#include "ScenarioPlay.h"
#include "TavEvents.h"
#include "TestWindow.h"
#include "TextFile.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTableWidget>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTranslator>
#include <QVBoxLayout>
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

/// Whether the label shows a value that a manager holds.
bool isFact(const QLabel &label)
{
    return qobject_cast<const FactsForm *>(label.parentWidget()) && !label.accessibleName().isEmpty();
}

/// The texts of the interface itself; not what is in tables, trees and fields, which is data.
QVector<ShownText> textsOf(const QWidget &window)
{
    QVector<ShownText> texts;
    append(texts, window, window.windowTitle());
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (const QWidget *const widget : widgets) {
        const auto *const label = qobject_cast<const QLabel *>(widget);
        if (label && isFact(*label)) {
            continue;
        }
        append(texts, *widget, widget->toolTip());
        append(texts, *widget, widget->accessibleName());
        if (label) {
            append(texts, *label, label->text());
        } else if (const auto *const button = qobject_cast<const QAbstractButton *>(widget)) {
            append(texts, *button, button->text());
        } else if (const auto *const line = qobject_cast<const QLineEdit *>(widget)) {
            append(texts, *line, line->placeholderText());
        } else if (const auto *const dock = qobject_cast<const QDockWidget *>(widget)) {
            append(texts, *dock, dock->windowTitle());
        } else if (const auto *const tabs = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                append(texts, *tabs, tabs->tabText(i));
            }
        } else if (const auto *const header = qobject_cast<const QHeaderView *>(widget)) {
            for (int i = 0; header->model() && i < header->count() && header->orientation() == Qt::Horizontal; ++i) {
                append(texts, *header, header->model()->headerData(i, Qt::Horizontal).toString());
                append(texts, *header, header->model()->headerData(i, Qt::Horizontal, Qt::ToolTipRole).toString());
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

/// Whether a text is the same in every language: the name of an interface, an operation or a field, a file, or a text
/// of the catalogue, which is Chinese.
bool isData(const QString &text)
{
    static const QRegularExpression data(R"(^((ITav|SubFunc_)\w+(::\w+)?|[a-z][\w.]*|JSON|/.*|.*\p{Han}.*)$)",
                                         QRegularExpression::UseUnicodePropertiesOption);
    return data.match(text).hasMatch();
}

/// Has @p look look at the window with each dock in front, and with each page and each of its tabs.
template<class Look>
void lookAtAll(const TestWindow &client, Look look)
{
    const QList<QDockWidget *> docks = client.window->findChildren<QDockWidget *>();
    for (QDockWidget *const dock : docks) {
        dock->raise();
        QTest::qWait(20);
        look(*client.window);
    }
    const auto types = QMetaEnum::fromType<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
    for (int i = 0; i < types.keyCount(); ++i) {
        const auto type = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_(types.value(i));
        if (valuesOf(type).isEmpty()) {
            continue;
        }
        eventFuncPageUpdate.Emit(type);
        ASSERT_TRUE(client.waitForPage(type));
        const QWidget &page = *client.window->pages().currentWidget();
        EXPECT_TRUE(waitUntil([&page] { return page.findChild<QTableView *>() || page.findChild<FactsForm *>(); }));
        QTest::qWait(20);
        look(*client.window);
        auto *const lists = page.findChild<QTabWidget *>();
        for (int tab = 0; lists && tab < lists->count(); ++tab) {
            lists->setCurrentIndex(tab);
            QTest::qWait(5);
            look(*client.window);
        }
    }
}

/// The box that says that a scenario cannot be played.
QMessageBox *newProblemBox(const TestWindow &client)
{
    client.window->play().open(QStringLiteral("/nonexistent/with-a-long-name/and-a-longer-one/scenario.jsonl"));
    QMessageBox *box = nullptr;
    EXPECT_TRUE(waitUntil([&] {
        box = client.window->findChild<QMessageBox *>();
        return box && box->isVisible();
    }));
    return box;
}

/// Whether the whole text has room in the widget that shows it.
bool isWhole(const QLabel &label)
{
    return label.wordWrap()
        ? label.heightForWidth(label.width()) <= label.height()
        : label.fontMetrics().size(Qt::TextShowMnemonic, label.text()).width() <= label.contentsRect().width();
}

/// The texts in @p window that are cut off.
QStringList cutTexts(const QWidget &window)
{
    QStringList cut;
    const auto take = [&cut](bool isWhole, const QString &text) {
        if (!isWhole && !text.isEmpty()) {
            cut.append(text);
        }
    };
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (const QWidget *const widget : widgets) {
        const auto *const header = qobject_cast<const QHeaderView *>(widget);
        const QWidget *const seen = header ? header->viewport() : widget; // which covers it
        if (!seen->isVisible() || seen->visibleRegion().isEmpty()) {
            continue;
        }
        if (const auto *const label = qobject_cast<const QLabel *>(widget)) {
            take(isWhole(*label), label->text());
        } else if (const auto *const button = qobject_cast<const QAbstractButton *>(widget)) {
            take(button->width() >= button->sizeHint().width(), button->text());
        } else if (const auto *const tabs = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                const int needed = tabs->fontMetrics().size(Qt::TextShowMnemonic, tabs->tabText(i)).width();
                take(tabs->tabRect(i).width() >= needed, tabs->tabText(i));
            }
        } else if (header) {
            for (int i = 0; header->orientation() == Qt::Horizontal && header->model() && i < header->count(); ++i) {
                const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
                take(header->sectionSize(i) >= header->fontMetrics().horizontalAdvance(text), text);
            }
        }
    }
    return cut;
}

/// The letter that the widget answers to together with Alt; none for most.
QKeySequence mnemonicOf(const QWidget &widget)
{
    if (const auto *const button = qobject_cast<const QPushButton *>(&widget)) {
        return QKeySequence::mnemonic(button->text());
    }
    const auto *const label = qobject_cast<const QLabel *>(&widget);
    return label && label->buddy() ? QKeySequence::mnemonic(label->text()) : QKeySequence();
}

/// The texts of the tables that have a translation in this context.
QStringList translatedTexts(const QString &context)
{
    QFile file(catalogues + "fields_zh_CN.ts");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList texts;
    QString inContext;
    for (QXmlStreamReader reader(&file); !reader.atEnd();) {
        if (!reader.readNextStartElement()) {
            continue;
        }
        if (reader.name() == QLatin1String("name")) {
            inContext = reader.readElementText();
        } else if (reader.name() == QLatin1String("source") && inContext == context) {
            texts.append(reader.readElementText());
        }
    }
    return texts;
}

void expectTranslated(const QStringList &texts, const QString &context)
{
    const QStringList translated = translatedTexts(context);
    const QSet<QString> shown(texts.begin(), texts.end());
    const QSet<QString> known(translated.begin(), translated.end());
    EXPECT_EQ((shown - known).values(), QStringList()) << "shown without a translation";
    EXPECT_EQ((known - shown).values(), QStringList()) << "translated and never shown";
    EXPECT_EQ(known.size(), translated.size()) << "translated twice";
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

TEST(Translation, KnowsEveryFieldAndCodeThatPagesShow)
{
    TestWindow window;
    QStringList names;
    QStringList meanings;
    const auto pages = QMetaEnum::fromType<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
    for (int i = 0; i < pages.keyCount(); ++i) {
        for (const PageValue &value : valuesOf(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_(pages.value(i)))) {
            const QVector<PartTable> parts
                = value.readKeysFrom ? value.readKeysFrom(window.session.host().registry(), {}) : value.read();
            for (const PartTable &part : parts) {
                names += part.part.isEmpty() ? QString() : ValueColumn{part.part, {}}.title();
                for (const ValueColumn &column : part.table->columns()) {
                    names += column.title().split(QStringLiteral(": "));
                    meanings += column.meanings.values();
                }
            }
        }
    }
    names.removeAll(QString());
    expectTranslated(names, "Fields");
    expectTranslated(meanings, "CodeMeanings");
}

TEST(Translation, IsChineseInEveryCountry)
{
    const auto translators = [] {
        const auto all = qApp->findChildren<QTranslator *>();
        return QSet<QTranslator *>(all.begin(), all.end());
    };
    for (const QString &name : {QStringLiteral("zh"), QStringLiteral("zh_CN"), QStringLiteral("zh_SG"),
                                QStringLiteral("zh_HK"), QStringLiteral("zh_TW")}) {
        const QSet<QTranslator *> before = translators();
        setInterfaceLanguage(QLocale(name));
        QString own;
        QString ofQt;
        for (QTranslator *const added : translators() - before) {
            own += added->translate("MainWindow", "Security Client for Development");
            ofQt += added->translate("QPlatformTheme", "Cancel");
            delete added;
        }
        EXPECT_EQ(own, QStringLiteral("开发用安全客户端")) << name.toStdString();
        EXPECT_EQ(ofQt, QStringLiteral("取消")) << name.toStdString();
    }
}

TEST(Translation, KnowsEveryUnit)
{
    setInterfaceLanguage(QLocale(QLocale::Chinese, QLocale::China));
    for (int kind = 0; kind <= int(TavFields::Kind::Bytes); ++kind) {
        const QString unit = CellText::unitOf(TavFields::Kind(kind));
        EXPECT_FALSE(unit.contains(QRegularExpression("[a-z]"))) << unit.toStdString();
    }
    EXPECT_FALSE(CellText::ofKind(TavFields::Kind::Size, 0).contains("bytes"));
    const RecordForm form("info", *recordTypeOf("STResourceInfoAsr"));
    EXPECT_FALSE(labelTexts(form).contains("bytes"));
}

TEST(Translation, ReachesWhatIsWrongWithAPlugin)
{
    setInterfaceLanguage(QLocale(QLocale::Chinese, QLocale::China));
    for (const QString &file : {QStringLiteral("/nonexistent/plugin.so"), QStringLiteral("/"),
                                QStringLiteral(TAV_SOURCE_DIR "/README.md"), QStringLiteral(TAV_OTHER_PLUGIN_FILE)}) {
        try {
            const TavPluginHost host(file);
            ADD_FAILURE() << file.toStdString() << " is taken";
        } catch (const TavPluginError &error) {
            for (const QString &text : {error.problem(), error.effect(), error.advice()}) {
                EXPECT_TRUE(text.contains(QRegularExpression("\\p{Han}"))) << text.toStdString();
            }
        }
    }
}

TEST(Translation, ReachesEveryTextOfTheWindow)
{
    MarkingTranslator marking;
    QCoreApplication::installTranslator(&marking);
    {
        const TestWindow client;
        QSet<QString> told;
        const auto look = [&told](const QWidget &window) {
            for (const ShownText &shown : textsOf(window)) {
                const bool hasLetters = shown.text.contains(QRegularExpression("[A-Za-z]{2}"));
                if (hasLetters && !shown.text.contains(QChar(MarkingTranslator::mark)) && !isData(shown.text)
                    && !told.contains(shown.text)) {
                    told.insert(shown.text);
                    ADD_FAILURE() << shown.where.toStdString() << ": " << shown.text.toStdString();
                }
            }
        };
        lookAtAll(client, look);
        showCatalogueFindings(client.window.get());
        look(*client.window);
        ASSERT_TRUE(waitUntil([&] { return client.window->findChild<FindingsDialog *>() != nullptr; }));
        look(*client.window);
        const QTemporaryDir root;
        TavGlobalInfoMgr::getInstance()->setSystemRoot(root.path());
        const std::unique_ptr<QWidget> problem(newCatalogueProblem(nullptr));
        look(*problem);
        QMessageBox *const box = newProblemBox(client);
        ASSERT_TRUE(box);
        box->setInformativeText({}); // the scenario's own problem, as tavctl tells it
        QTest::qWait(0);
        look(*box);
    }
    QCoreApplication::removeTranslator(&marking);
}

TEST(Translation, ACutTextIsSeen)
{
    QWidget window;
    auto *const label = new QLabel("the text of a label");
    auto *const button = new QPushButton("the text of a button");
    auto *const table = new QTableWidget(1, 1);
    table->setHorizontalHeaderLabels({"the title of a column"});
    table->setColumnWidth(0, 20);
    auto *const layout = new QVBoxLayout(&window);
    for (QWidget *const widget : std::initializer_list<QWidget *>{label, button, table}) {
        layout->addWidget(widget);
        widget->setMaximumWidth(40);
    }
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(cutTexts(window), (QStringList{"the text of a label", "the text of a button", "the title of a column"}));
}

TEST(Translation, IsNotCutOff)
{
    setInterfaceLanguage(QLocale(QLocale::Chinese, QLocale::China));
    const TestWindow client;
    EXPECT_EQ(client.window->windowTitle(), QStringLiteral("开发用安全客户端"));
    QSet<QString> cut;
    lookAtAll(client, [&cut](const QWidget &window) {
        const QStringList texts = cutTexts(window);
        cut.unite(QSet<QString>(texts.begin(), texts.end()));
    });
    EXPECT_EQ(cut.values(), QStringList());
    const QMessageBox *const box = newProblemBox(client);
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->text().startsWith(QStringLiteral("无法播放 /"))) << box->text().toStdString();
    EXPECT_EQ(cutTexts(*box), QStringList());
}

TEST(Translation, ButtonsOfToolBarsShowNoMnemonic)
{
    for (const QLocale::Language language : {QLocale::English, QLocale::Chinese}) {
        setInterfaceLanguage(language);
        const TestWindow client;
        int shown = 0;
        const QList<QToolBar *> bars = client.window->findChildren<QToolBar *>();
        for (const QToolBar *const bar : bars) {
            const QList<QToolButton *> buttons = bar->findChildren<QToolButton *>();
            for (const QToolButton *const button : buttons) {
                shown += button->text().isEmpty() ? 0 : 1;
                EXPECT_FALSE(button->text().contains('&') || button->text().contains('('))
                    << button->text().toStdString();
            }
        }
        EXPECT_GE(shown, 8);
    }
}

TEST(Translation, KeepsEachLetterWithAltForOnePlace)
{
    for (const QLocale::Language language : {QLocale::English, QLocale::Chinese}) {
        setInterfaceLanguage(language);
        const TestWindow client;
        QMap<QString, QStringList> places;
        const QList<QAction *> menus = client.window->menuBar()->actions();
        for (const QAction *const menu : menus) {
            places[QKeySequence::mnemonic(menu->text()).toString()] += menu->text();
        }
        const QList<QWidget *> widgets = client.window->findChildren<QWidget *>();
        for (const QWidget *const widget : widgets) {
            const QKeySequence letter = mnemonicOf(*widget);
            if (!letter.isEmpty()) {
                places[letter.toString()] += widget->accessibleName() + ' ' + widget->metaObject()->className();
            }
        }
        for (auto place = places.cbegin(); place != places.cend(); ++place) {
            EXPECT_EQ(place->size(), 1) << place.key().toStdString() << ": " << place->join('|').toStdString();
        }
    }
}
