// A scenario: any bytes, and any bytes as the lines behind a sound first one. Each line is an error that names it, or a
// call that is made; what was called and what came back can be written and read again.
#include "ITavPicResourceMgr.h"
#include "Require.h"
#include "ScratchFile.h"
#include "TavPluginHost.h"
#include "TavScenario.h"

#include <QBuffer>
#include <QJsonDocument>

#include <cstdint>

namespace
{
TavScenarioReader::CutLine cutLineOf(std::uint8_t choice)
{
    return choice % 2 != 0 ? TavScenarioReader::CutLine::LeaveOut : TavScenarioReader::CutLine::Refuse;
}

/// The line of a recording of this call.
QByteArray recorded(const TavScenario::Line &line, const QJsonValue &returned)
{
    const QJsonObject json{{"at", double(line.at) / 1e6}, {"thread", TavScenario::threads()[line.thread]},
                           {"manager", line.manager},     {"operation", line.operation},
                           {"arguments", line.arguments}, {"returns", returned}};
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

/// A getter that returns indeterminate values is only read behind its setter.
const QByteArray setter = R"({"manager": "ITavHostInfoMgr", "operation": "setResourceInfo", "arguments": [{}]})";

void requireReadAgain(const TavScenario::Line &line, const QJsonValue &returned)
{
    QByteArray text = "{\"tavScenario\": 1}\n" + setter + '\n' + recorded(line, returned) + '\n';
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    try {
        TavScenarioReader reader(buffer);
        TavScenario::Line again;
        require(reader.next(again) && reader.next(again), "what was called can be written and read again");
        require(again.at == line.at && again.thread == line.thread && again.manager == line.manager
                    && again.operation == line.operation && again.arguments == line.arguments,
                "what is read again is the same call");
        TavScenario::Difference difference;
        require(TavScenario::isAsExpected(again.returns, returned, difference),
                "what was returned is as expected when it is read again");
    } catch (const TavScenarioError &error) {
        std::fprintf(stderr, "%s\n%s\n", text.constData(), error.what());
        require(false, "what was called and returned is no mistake when it is written");
    }
}

void play(const TavScenario::Managers &managers, const TavScenario::Line &line)
{
    if (line.operation == "appendPicResourcePath") {
        return; // would walk through any directory of this machine; the fuzzer of the pictures has one of its own
    }
    require(!line.page.isEmpty() || managers.contains(line.manager), "a line is of a manager that there is");
    try {
        const QJsonValue returned = line.call(managers);
        TavScenario::Difference difference;
        require(TavScenario::isAsExpected(returned, returned, difference), "what is returned is as itself");
        static_cast<void>(TavScenario::isAsExpected(line.returns, returned, difference));
        if (line.page.isEmpty()) {
            requireReadAgain(line, returned);
        }
    } catch (const TavCallError &error) {
        require(!error.problem().isEmpty(), "a refused call says why");
    }
}

void readAndPlay(const TavScenario::Managers &managers, QBuffer &buffer, TavScenarioReader::CutLine cutLine)
{
    TavScenarioReader reader(buffer, cutLine);
    TavScenario::Line line;
    int number = 1;
    qint64 at = 0;
    for (bool isThere = true; isThere;) {
        ++number;
        try {
            isThere = reader.next(line);
            if (isThere) {
                require(line.number == number && line.at >= at, "lines have their numbers and rising times");
                at = line.at;
                play(managers, line);
            }
        } catch (const TavScenarioError &error) {
            require(error.line() == number && !error.problem().isEmpty(), "a mistake has its line and a reason");
        }
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile emptyRoot(QStringLiteral("empty"));
    if (size == 0) {
        return 0;
    }
    TavGlobalInfoMgr::getInstance()->setSystemRoot(emptyRoot.root()); // what is loaded is not this machine's
    QByteArray text(reinterpret_cast<const char *>(data) + 1, static_cast<int>(size) - 1);
    if (data[0] / 2 % 2 == 0) { // otherwise the whole file
        text.prepend("{\"tavScenario\": 1}\n");
    }
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TavPluginHost plugin{TAV_PLUGIN_FILE};
    try {
        readAndPlay(TavScenario::managersOf(plugin), buffer, cutLineOf(data[0]));
    } catch (const TavScenarioError &error) {
        require(error.line() == 1, "the only mistake that ends the reading is of the first line");
    }
    return 0;
}
