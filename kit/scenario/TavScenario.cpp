#include "TavScenario.h"

#include "ITavFuncTypeMgr.h"
#include "ITavPicResourceMgr.h"
#include "ITavSelectFuncMgr.h"
#include "TavJson.h"
#include "TavJsonText.h"
#include "TavNearestText.h"
#include "TavPluginHost.h"
#include "TavSetValue.h"

#include <QJsonDocument>
#include <QtNumeric>

#include <cctype>
#include <cmath>
#include <cstring>
#include <optional>

namespace
{

/// What QJsonDocument takes although it is no JSON, or would lose: control characters and unknown escapes in a text,
/// anything but ASCII outside of one. Also counts the members as they are written.
struct TextScan {
    struct Mistake {
        int offset;
        const char *reason;
    };

    int members = 0;
    std::optional<Mistake> mistake;
    std::optional<int> openTextAt; ///< offset of the text that has begun and not ended

    explicit TextScan(const QByteArray &text)
    {
        for (int i = 0; i < text.size() && !mistake; ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            const bool isInText = openTextAt.has_value();
            if (byte == '"') {
                openTextAt = isInText ? std::nullopt : std::optional(i);
            } else if (isInText && byte == '\\') {
                ++i;
                if (i < text.size() && !std::strchr("\"\\/bfnrtu", text[i])) {
                    mistake = {i, "there is no such escape in JSON"};
                }
            } else if (isInText && byte < ' ') {
                mistake = {i, "a control character must be written as an escape, such as \\u0000"};
            } else if (!isInText && (byte >= 0x80 || byte == 0)) {
                mistake = {i, byte == 0 ? "a NUL byte stands here" : "only ASCII may stand outside of texts"};
            } else if (!isInText && byte == ':') {
                ++members;
            }
        }
    }
};

/// Whether an object can begin with @p text, which may end within a word, a number or the text at @p openTextAt.
bool isBeginning(QByteArray text, std::optional<int> openTextAt)
{
    if (openTextAt) {
        text.truncate(*openTextAt);
        text += R"("")";
    } else {
        const int whole = text.size();
        while (!text.isEmpty() && (std::isalnum(uchar(text.back())) || std::strchr("+-.", text.back()))) {
            text.chop(1);
        }
        text += text.size() < whole ? "0" : "";
    }
    // No JSON goes on like this: a text that is right so far is refused for what is put behind it, not before.
    QJsonParseError refused;
    QJsonDocument::fromJson(text + "0?", &refused);
    return refused.offset > text.size();
}

int membersIn(const QJsonValue &value)
{
    int members = 0;
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        members = object.size();
        for (const QJsonValue &member : object) {
            members += membersIn(member);
        }
    } else if (value.isArray()) {
        const QJsonArray array = value.toArray();
        for (const QJsonValue &element : array) {
            members += membersIn(element);
        }
    }
    return members;
}

/// Whether places in a line are looked for: in long ones they would take much memory.
bool hasPlaces(const QByteArray &text)
{
    constexpr int mostBytes = 1 << 20;
    return text.size() <= mostBytes;
}

/// What is mistaken when something is at @p path, a JSON pointer into the line.
TavScenarioError::Kind kindAt(const QString &path)
{
    using Kind = TavScenarioError::Kind;
    static const QHash<QString, Kind> kinds{
        {"manager", Kind::Call}, {"operation", Kind::Call}, {"page", Kind::Call},      {"arguments", Kind::Arguments},
        {"at", Kind::Time},      {"thread", Kind::Thread},  {"returns", Kind::Returns}};
    return kinds.value(path.section('/', 1, 1), Kind::Key);
}

/// The call of a line. Throws TavCallError with a path into the line.
TavCall::Prepared callOf(const TavScenario::Line &line)
{
    try {
        return TavCall::preparedCall(line.manager, line.operation, line.arguments, "/arguments");
    } catch (const TavCallError &error) {
        if (!error.path().isEmpty()) {
            throw;
        }
        throw TavCallError(TavCall::managers().contains(line.manager) ? "/operation" : "/manager", error.problem());
    }
}

QString textOf(const QJsonObject &object, const QString &key)
{
    if (!object.contains(key)) {
        throw TavCallError({}, QString("the key \"%1\" is missing").arg(key));
    }
    if (!object[key].isString()) {
        throw TavCallError(TavJson::memberPath({}, key),
                           QString("expected a text, not %1").arg(TavJson::described(object[key])));
    }
    return object[key].toString();
}

int threadOf(const QJsonObject &object)
{
    const QString name = textOf(object, "thread");
    const int place = TavScenario::threads().indexOf(name);
    if (place < 0) {
        throw TavCallError(
            "/thread", QString("there is no thread \"%1\" (%2)").arg(name, nearestOrAll(name, TavScenario::threads())));
    }
    return place;
}

template<class Interface>
Interface *managerIn(const TavScenario::Managers &managers)
{
    return qobject_cast<Interface *>(managers.value(qobject_interface_iid<Interface *>()));
}

/// Selects a page as the navigation does, with the function that the catalogue has it in.
std::function<QJsonValue(const TavScenario::Managers &)> selectionOf(const QJsonValue &key)
{
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;
    const auto page = TavJson::fromJson<Page>(key, "/page");
    return [page](const TavScenario::Managers &managers) -> QJsonValue {
        auto *const selection = managerIn<ITavSelectFuncMgr>(managers);
        auto *const catalogue = managerIn<ITavFuncTypeMgr>(managers);
        if (!selection) {
            throw TavCallError({}, "there is no selection manager");
        }
        selection->setCurSelType(catalogue ? catalogue->getSubFuncInfo(page).funcType : CTavFuncTypeHeader::Func_None,
                                 page);
        return {}; // null
    };
}

QString cut(const QString &text, int mostLetters)
{
    return text.size() <= mostLetters ? text : text.left(mostLetters) + "…";
}

QString jsonText(const QJsonValue &value)
{
    if (value.isUndefined()) {
        return "nothing";
    }
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return cut(QString::fromUtf8(text.mid(1).chopped(1)), 200);
}

/// Names and keys that are wrong are quoted, and may be as long as a line.
QString readable(const QString &message)
{
    return cut(message, 2000);
}

QString lineText(int line, const QString &path, const QString &problem, int column)
{
    const QString place = path.isEmpty() && column > 0 ? QString(" (character %1)").arg(column) : QString();
    return line > 0 ? QString("line %1: ").arg(line) + (path.isEmpty() ? problem : path + ": " + problem) + place
                    : problem;
}
}

const QStringList &TavScenario::threads()
{
    static const QStringList names{"agent",  "agent2", "agent3", "agent4", "agent5",
                                   "agent6", "agent7", "agent8", "gui"};
    return names;
}

TavScenario::Managers TavScenario::managersOf(TavPluginHost &host)
{
    Managers managers;
    const QStringList names = TavCall::managers();
    for (const QString &name : names) {
        managers.insert(name, host.managerObject(name.toUtf8().constData()));
    }
    return managers;
}

bool TavScenario::Line::isCompared() const
{
    return !returns.isUndefined() && returns != QJsonObject();
}

QString TavScenario::Line::subject() const
{
    return page.isEmpty() ? manager + ' ' + operation : "page " + page;
}

QString TavScenario::Difference::text() const
{
    return QString("returned something else%1\n  expected: %2\n  returned: %3")
        .arg(path.isEmpty() ? QString() : " at " + path, expected, actual);
}

bool TavScenario::isAsExpected(const QJsonValue &expected, const QJsonValue &actual, Difference &first)
{
    if (expected.isObject() && actual.isObject()) {
        const QJsonObject fields = expected.toObject();
        const QJsonObject held = actual.toObject();
        for (auto field = fields.begin(); field != fields.end(); ++field) {
            const bool isEmptyList = field.value() == QJsonArray() && !held.contains(field.key()); // of a message
            if (!isEmptyList && !isAsExpected(field.value(), held.value(field.key()), first)) {
                first.path.prepend(TavJson::memberPath({}, field.key()));
                return false;
            }
        }
        return true;
    }
    if (expected.isArray() && actual.isArray()) {
        const QJsonArray elements = expected.toArray();
        const QJsonArray held = actual.toArray();
        for (int i = 0; i < std::max(elements.size(), held.size()); ++i) {
            // at() of a place behind the end is undefined, and so differs
            if (!isAsExpected(elements.at(i), held.at(i), first)) {
                first.path.prepend(TavJson::elementPath({}, i));
                return false;
            }
        }
        return true;
    }
    if (expected == actual) {
        return true;
    }
    first = {{}, jsonText(expected), jsonText(actual)};
    return false;
}

TavScenarioError::TavScenarioError(int line, const QString &path, const QString &problem, Kind kind, int column)
    : std::runtime_error(lineText(line, readable(path), readable(problem), column).toStdString())
    , m_line(line)
    , m_path(readable(path))
    , m_problem(readable(problem))
    , m_kind(kind)
    , m_column(column)
{
}

TavScenarioReader::TavScenarioReader(QIODevice &device, CutLine cutLine) : m_device(device), m_cut(cutLine)
{
    using Kind = TavScenarioError::Kind;
    if (!readObject(m_header)) {
        refuse(Kind::Header, {}, R"(the file has no whole line; the first is {"tavScenario": 1})");
    }
    if (!m_header.contains("tavScenario")) {
        refuse(Kind::Header, {}, R"(no scenario: its first line has the key "tavScenario")");
    }
    if (m_header["tavScenario"] != 1) {
        refuse(Kind::Header, "/tavScenario",
               "the version must be 1, not " + TavJson::described(m_header["tavScenario"]));
    }
}

bool TavScenarioReader::next(TavScenario::Line &line)
{
    QJsonObject object;
    if (!readObject(object)) {
        return false;
    }
    try {
        line = lineOf(object);
    } catch (const TavCallError &error) {
        refuse(kindAt(error.path()), error.path(), error.problem());
    }
    return true;
}

void TavScenarioReader::refuse(TavScenarioError::Kind kind, const QString &path, const QString &problem) const
{
    const int column
        = !path.isEmpty() && hasPlaces(m_text) ? TavJsonText(m_text).valuesAt({path}).value(path).place.column : 0;
    throw TavScenarioError(m_number, path, problem, kind, column);
}

void TavScenarioReader::refuseCharacter(const QString &problem, int column) const
{
    throw TavScenarioError(m_number, {}, problem, TavScenarioError::Kind::Line, column);
}

/// The next line with its end; of one that is too long the beginning, which is still too long.
QByteArray TavScenarioReader::readLine()
{
    QByteArray text;
    QByteArray part;
    do {
        part = m_device.readLine(1 << 14); // the device would fill a buffer of the longest line's size
        if (text.size() <= longestLine) {
            text += part;
        }
    } while (!part.isEmpty() && !part.endsWith('\n'));
    return text;
}

/// Reads the object in the next line; false at the end.
bool TavScenarioReader::readObject(QJsonObject &object)
{
    using Kind = TavScenarioError::Kind;
    ++m_number;
    m_text = readLine();
    if (m_text.isEmpty()) {
        const auto *const file = qobject_cast<QFileDevice *>(&m_device);
        if (file && file->error() != QFileDevice::NoError) {
            refuse(Kind::Line, {}, "cannot be read: " + file->errorString());
        }
        return false;
    }
    const bool isEnded = m_text.endsWith('\n');
    if (isEnded) {
        m_text.chop(1);
    }
    if (m_text.size() > longestLine) {
        refuse(Kind::Line, {}, QString("longer than %1 MiB").arg(longestLine >> 20));
    }
    QJsonParseError parsing;
    const QJsonDocument document = QJsonDocument::fromJson(m_text, &parsing);
    const TextScan scan(m_text);
    // No beginning of an object is JSON itself, so a last line that is JSON is whole.
    if (!isEnded && parsing.error != QJsonParseError::NoError && !scan.mistake
        && isBeginning(m_text, scan.openTextAt)) {
        if (m_cut == CutLine::Refuse) {
            refuse(Kind::Cut, {},
                   "cut: the file ends within this line; what stands before it can be played as a partial scenario");
        }
        m_cutLine = m_number;
        return false;
    }
    if (scan.mistake) {
        refuseCharacter(scan.mistake->reason, placeAt(m_text, scan.mistake->offset).column);
    }
    if (parsing.error != QJsonParseError::NoError) {
        const TavJsonText mistaken(m_text);
        refuseCharacter(mistaken.error(), mistaken.errorPlace().column);
    }
    if (!document.isObject()) {
        refuse(Kind::Line, {}, "an object is expected, not an array");
    }
    object = document.object();
    if (membersIn(object) != scan.members) {
        const QString path = hasPlaces(m_text) ? TavJsonText(m_text).doubledKeys().values().value(0) : QString();
        refuse(Kind::Key, path, "the key stands more than once in its object");
    }
    return true;
}

/// Throws TavCallError with a path into the line.
TavScenario::Line TavScenarioReader::lineOf(const QJsonObject &object)
{
    const bool isPage = object.contains("page");
    TavJson::refuseUnknownKeys(
        object,
        isPage ? QStringList{"at", "thread", "page"}
               : QStringList{"at", "thread", "manager", "operation", "arguments", "returns", "page"});
    TavScenario::Line line;
    line.number = m_number;
    line.bytes = m_text.size();
    if (object.contains("at")) {
        const double seconds = object["at"].toDouble(qQNaN());
        if (!(seconds >= 0) || seconds > latestTime) {
            throw TavCallError(
                "/at",
                QString("expected seconds from 0 to %1, not %2").arg(latestTime).arg(TavJson::described(object["at"])));
        }
        const qint64 at = std::llround(seconds * TavScenario::microsecondsInSecond);
        if (at < m_at) {
            throw TavCallError("/at",
                               QString("the time falls: %1 stands behind %2")
                                   .arg(seconds)
                                   .arg(double(m_at) / TavScenario::microsecondsInSecond));
        }
        m_at = at;
    }
    line.at = m_at;
    if (object.contains("thread")) {
        line.thread = threadOf(object);
    }
    if (isPage) {
        line.page = textOf(object, "page");
        line.call = selectionOf(object["page"]);
        line.manager = qobject_interface_iid<ITavSelectFuncMgr *>();
        return line;
    }
    line.manager = textOf(object, "manager");
    line.operation = textOf(object, "operation");
    if (!object.contains("arguments")) {
        throw TavCallError({}, R"(the key "arguments" is missing; an operation without any has [])");
    }
    line.arguments = object["arguments"];
    if (!line.arguments.isArray() && !line.arguments.isObject()) {
        throw TavCallError("/arguments",
                           "expected an array by position or an object by name, not "
                               + TavJson::described(line.arguments));
    }
    const TavCall::Prepared prepared = callOf(line);
    line.call = [call = prepared.call, name = line.manager](const TavScenario::Managers &managers) {
        return call(managers.value(name));
    };
    if (line.manager == qobject_interface_iid<ITavPicResourceMgr *>() && line.thread != TavScenario::gui) {
        throw TavCallError("/thread", R"(ITavPicResourceMgr is called on the thread "gui" only)");
    }
    if (prepared.operation->isIndeterminateAtFirst && !m_determined.contains(line.manager + line.operation)) {
        refuse(TavScenarioError::Kind::Indeterminate, {},
               line.operation + " returns whatever the memory holds until its setter has been called");
    }
    m_determined.insert(line.manager + TavCall::setValueOf(line.manager, line.operation, line.arguments).getter);
    if (object.contains("returns")) {
        line.returns = prepared.expected(object["returns"], "/returns");
    }
    return line;
}
