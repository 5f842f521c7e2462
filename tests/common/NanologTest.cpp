#include "TavNanolog.h"

#include "AtOnce.h"
#include "BackgroundCalls.h"
#include "Deadline.h"
#include "GlobalStateGuard.h"
#include "LogCapture.h"
#include "PrintQString.h"

#include <QLoggingCategory>
#include <QSemaphore>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <thread>
#include <vector>

using TavNanolog::TavNanoLogLine;

namespace
{
constexpr int lowestLevel = -1;
constexpr int highestLevel = 7;

std::vector<int> loggedLevels()
{
    std::vector<int> levels;
    for (int level = lowestLevel; level <= highestLevel; ++level) {
        if (TavNanolog::is_logged(level)) {
            levels.push_back(level);
        }
    }
    return levels;
}

// Before main(), so that nobody can have set a level.
const std::vector<int> levelsLoggedAtFirst = loggedLevels();

void log(int level, const char *source, const QString &text)
{
    TavNanoLogLine line(level, source, "function", 1);
    line.encode(text);
    TavNanolog::NanoLog(line);
}

QSemaphore isHeld;
QSemaphore letGo;

QByteArray categoryToHold;

/// Qt calls it for every category that it gets to know; one of them is held until let go.
void holdCategory(QLoggingCategory *category)
{
    if (categoryToHold == category->categoryName()) {
        isHeld.release();
        letGo.acquire();
    }
}

class Nanolog : public testing::Test
{
    GlobalStateGuard m_guard;

protected:
    void TearDown() override
    {
        QLoggingCategory::setFilterRules({});
    }

    /// What reached the log under @p category, line by line.
    QStringList texts(const char *category) const
    {
        QStringList texts;
        for (const LogCapture::Message &message : capture.messages(category)) {
            texts.append(message.text);
        }
        return texts;
    }

    LogCapture capture;
};
}

TEST_F(Nanolog, AtFirstLevelsUpToThreeAreLogged)
{
    EXPECT_THAT(levelsLoggedAtFirst, testing::ElementsAre(-1, 0, 1, 2, 3));
}

TEST_F(Nanolog, LevelsUpToTheOneSetAreLogged)
{
    for (int threshold = lowestLevel; threshold <= highestLevel; ++threshold) {
        TavNanolog::setLevel(threshold);
        for (int level = lowestLevel; level <= highestLevel; ++level) {
            EXPECT_EQ(TavNanolog::is_logged(level), level <= threshold) << level << " at " << threshold;
        }
    }
}

TEST_F(Nanolog, ALineIsPutOutWhateverTheThreshold)
{
    TavNanolog::setLevel(0);
    log(5, "Source", QStringLiteral("text"));
    EXPECT_EQ(texts("tav.Source"), QStringList(QStringLiteral("text")));
}

TEST_F(Nanolog, TheCategoryIsNamedAfterTheSource)
{
    log(3, "First", QStringLiteral("1"));
    log(3, "Second", QStringLiteral("2"));
    EXPECT_EQ(texts("tav.First"), QStringList(QStringLiteral("1")));
    EXPECT_EQ(texts("tav.Second"), QStringList(QStringLiteral("2")));
}

TEST_F(Nanolog, ALevelBecomesAMessageTypeAndNoneEndsTheProcess)
{
    const std::pair<int, QtMsgType> rows[] = {
        {-1, QtCriticalMsg}, {0, QtCriticalMsg}, {1, QtCriticalMsg}, {2, QtCriticalMsg},
        {3, QtWarningMsg},   {4, QtInfoMsg},     {5, QtDebugMsg},    {6, QtDebugMsg},
    };
    for (const auto &[level, type] : rows) {
        log(level, "Types", {});
        EXPECT_EQ(capture.messages("tav.Types").last().type, type) << level;
    }
    EXPECT_EQ(capture.messages("tav.Types").size(), static_cast<int>(std::size(rows)));
}

TEST_F(Nanolog, FunctionAndLineReachTheMessageHandler)
{
    TavNanolog::NanoLog(TavNanoLogLine(3, "Place", "loadConfig", 42));
    const QVector<LogCapture::Message> messages = capture.messages("tav.Place");
    ASSERT_EQ(messages.size(), 1);
    EXPECT_EQ(messages[0].function, "loadConfig");
    EXPECT_EQ(messages[0].line, 42);
}

TEST_F(Nanolog, FilterRulesSilenceOneTypeOfOneSource)
{
    QLoggingCategory::setFilterRules(QStringLiteral("tav.Silent.warning=false"));
    log(3, "Silent", QStringLiteral("warning"));
    log(1, "Silent", QStringLiteral("error"));
    log(3, "Other", QStringLiteral("warning"));
    EXPECT_EQ(texts("tav.Silent"), QStringList(QStringLiteral("error")));
    EXPECT_EQ(texts("tav.Other"), QStringList(QStringLiteral("warning")));
}

TEST_F(Nanolog, FilterRulesSilenceASourceThatHasLoggedBefore)
{
    log(3, "Later", QStringLiteral("before"));
    QLoggingCategory::setFilterRules(QStringLiteral("tav.Later=false"));
    log(3, "Later", QStringLiteral("after"));
    EXPECT_EQ(texts("tav.Later"), QStringList(QStringLiteral("before")));
}

TEST_F(Nanolog, TextsAreAppendedToTheLine)
{
    TavNanoLogLine line(3, "Parts", "function", 1);
    line.encode(QStringLiteral("one, "));
    line.encode({});
    line.encode(QStringLiteral("two"));
    TavNanolog::NanoLog(line);
    EXPECT_EQ(texts("tav.Parts"), QStringList(QStringLiteral("one, two")));
}

TEST_F(Nanolog, ChineseTextArrivesWhole)
{
    const QString text = QStringLiteral("配置错误！ 100% %1 %s");
    log(1, "Chinese", text);
    EXPECT_EQ(texts("tav.Chinese"), QStringList(text));
}

TEST_F(Nanolog, ALineKnowsWhatItWasMadeOf)
{
    TavNanoLogLine line(4, "Source", "function", 42);
    line.encode(QStringLiteral("text"));
    EXPECT_EQ(line.level(), 4);
    EXPECT_EQ(line.source(), "Source");
    EXPECT_EQ(line.function(), "function");
    EXPECT_EQ(line.line(), 42);
    EXPECT_EQ(line.text(), QStringLiteral("text"));
}

TEST_F(Nanolog, ALineKeepsNamesThatChangeBehindIt)
{
    char source[] = "Before";
    char function[] = "before";
    const TavNanoLogLine line(3, source, function, 1);
    std::strcpy(source, "After");
    std::strcpy(function, "after");
    TavNanolog::NanoLog(line);
    ASSERT_EQ(capture.messages("tav.Before").size(), 1);
    EXPECT_EQ(capture.messages("tav.Before")[0].function, "before");
}

TEST_F(Nanolog, ASourceOutlivesTheLineThatNamedItFirst)
{
    auto line = std::make_unique<TavNanoLogLine>(3, "Temporary", "function", 1);
    TavNanolog::NanoLog(*line);
    line.reset();
    // Goes through the names of all categories that Qt knows.
    QLoggingCategory::setFilterRules(QStringLiteral("tav.Temporary=false"));
    log(3, "Temporary", {});
    EXPECT_EQ(capture.messages("tav.Temporary").size(), 1);
}

TEST_F(Nanolog, ThreadsMayLogUnderANewSourceAtOnce)
{
    constexpr int threadCount = 4;
    for (int round = 0; round < 100; ++round) {
        const QByteArray source = "AtOnce" + QByteArray::number(round);
        const QString text = QString::number(round);
        atOnce(threadCount, [&](int) { log(3, source.constData(), text); });
        const QStringList received = texts(("tav." + source).constData());
        EXPECT_EQ(received.count(text), threadCount) << source.constData();
        EXPECT_EQ(received.size(), threadCount) << source.constData();
    }
}

TEST_F(Nanolog, AThreadWaitsWhileAnotherMakesTheSourceKnown)
{
    const Deadline deadline;
    static int run = 0; // a repeated test needs a source that is new again
    const QByteArray source = "Held" + QByteArray::number(++run);
    categoryToHold = "tav." + source;
    const auto logHeld = [source] { log(3, source.constData(), QStringLiteral("text")); };
    const auto oldFilter = QLoggingCategory::installFilter(holdCategory);
    std::thread first(logHeld);
    isHeld.acquire();
    {
        const BackgroundCalls second({logHeld});
        EXPECT_THAT(second.returned(), testing::IsEmpty());
        letGo.release();
    }
    first.join();
    QLoggingCategory::installFilter(oldFilter);
    EXPECT_EQ(texts(categoryToHold.constData()).size(), 2);
}
