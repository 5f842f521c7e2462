#include "CatalogueCheck.h"

#include "Base64Text.h"
#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"
#include "InstallationPaths.h"
#include "SchemaCheck.h"
#include "TavJsonPath.h"
#include "TavObjectMgr.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaEnum>
#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
/// The value of a type's key; 0, the value for no function or page, for what is no key.
template<class Enum>
int typeOf(const QJsonValue &key)
{
    return qMax(0, QMetaEnum::fromType<Enum>().keyToValue(key.toString().toUtf8().constData()));
}

/// @brief Goes through the entries as the plugin does, and finds those that stand in each other's way.
class EntryCheck
{
public:
    void checkFunctions(const QJsonArray &functions, const QString &path)
    {
        for (int i = 0; i < functions.size(); ++i) {
            const QJsonObject function = functions[i].toObject();
            const QString functionPath = TavJson::elementPath(path, i);
            if (function.contains("funcType")) {
                checkFunction(function, functionPath);
            }
        }
    }

    /// To be called when all functions have been gone through.
    void checkParents()
    {
        for (const Parent &parent : qAsConst(m_parents)) {
            if (leadsBack(parent)) {
                m_findings.append(
                    Finding::ofValue(FindingCode::ParentInCircle, parent.path,
                                     parent.page == parent.type ? "the page is its own parent"
                                                                : "the page is a parent of its own parents",
                                     "no way leads to the page, and a client that goes up to the first comes to no end",
                                     "name a page that is opened from elsewhere"));
            } else if (!m_pages.contains(parent.type)) {
                m_findings.append(Finding::ofValue(FindingCode::ParentMissing, parent.path,
                                                   '"' + parent.key + "\" is a parent that does not exist",
                                                   "the plugin stores the type, under which the catalogue has no page",
                                                   "name a page of the catalogue, or add this one"));
            }
        }
    }

    bool hasPages() const
    {
        return !m_pages.isEmpty();
    }

    Findings findings() const
    {
        return m_findings;
    }

private:
    struct Function {
        QString path;
        QString title;
        QString icon;
    };

    struct Page {
        QString path;
        QString controller;
    };

    struct Parent {
        QString path;
        QString key;
        int page; // whose parent it is
        int type;
    };

    /// Whether the way from parent to parent comes back to the page that it begins with.
    bool leadsBack(const Parent &parent) const
    {
        QSet<int> seen;
        int type = parent.type;
        while (type != parent.page && !seen.contains(type)) {
            seen.insert(type);
            type = m_parentOf.value(type);
        }
        return type > 0 && type == parent.page;
    }

    void checkFunction(const QJsonObject &function, const QString &path)
    {
        const QString key = function["funcType"].toString();
        const int type = typeOf<CTavFuncTypeHeader::TavFuncTypeHeader_>(key);
        const Function self{path, function["funcTitle"].toString(), function["funcIcon"].toString()};
        const Function first = m_functions.value(type, self);
        if (type > 0 && m_above.contains(type)) {
            m_findings.append(
                Finding::ofValue(FindingCode::NestedInItself, path + "/funcType",
                                 '"' + key + "\" is the type of an entry that this one is nested in",
                                 "the pages of both are found for either, and a client that builds its menu by the "
                                 "types of parents comes to no end",
                                 "write another type, or move its pages to an entry that stands beside the other"));
        } else if (type > 0 && (first.title != self.title || first.icon != self.icon)) {
            m_findings.append(Finding::ofValue(
                FindingCode::FunctionTwice, path + "/funcType",
                '"' + key + "\" stands already at " + first.path + ", with another title or icon",
                QString("getFuncInfoData gives the first title and icon (%1, %2)").arg(first.title, first.icon),
                "write the title and icon of the first, or another type"));
        }
        m_functions.insert(type, first);
        if (function.contains("subFunList")) {
            checkPages(function["subFunList"].toArray(), path + "/subFunList");
        } else {
            m_above.append(type);
            checkFunctions(function["funcList"].toArray(), path + "/funcList");
            m_above.removeLast();
        }
    }

    void checkPages(const QJsonArray &pages, const QString &path)
    {
        for (int i = 0; i < pages.size(); ++i) {
            const QJsonObject page = pages[i].toObject();
            if (!page["disable"].toBool()) {
                checkPage(page, TavJson::elementPath(path, i));
            }
        }
    }

    void checkPage(const QJsonObject &page, const QString &path)
    {
        using Type = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;
        const int type = typeOf<Type>(page["subFuncType"]);
        const Page self{path, page["subFuncClassName"].toString()};
        const Page first = m_pages.value(type, self);
        if (type > 0 && first.path != path) {
            m_findings.append(
                Finding::ofValue(FindingCode::PageTwice, path + "/subFuncType",
                                 '"' + page["subFuncType"].toString() + "\" stands already at " + first.path,
                                 QString("a look-up by type finds the first: choosing this page opens the first one's "
                                         "controller (%1)")
                                     .arg(first.controller),
                                 "remove or disable one of them, or write another type"));
        }
        m_pages.insert(type, first);
        const int parent = typeOf<Type>(page["realParentType"]);
        if (parent > 0 && page.contains("subFuncHasParent") && !page["subFuncHasParent"].toBool()) {
            m_parents.append({path + "/realParentType", page["realParentType"].toString(), type, parent});
            m_parentOf.insert(type, parent);
        }
    }

    QHash<int, Function> m_functions; // the first entry of each type
    QHash<int, Page> m_pages; // the first page of each type
    QVector<int> m_above; // types of the functions that the current one is nested in
    QVector<Parent> m_parents;
    QHash<int, int> m_parentOf; // of each page by its type, 0 for none
    Findings m_findings;
};

const char *const nothingRead = "the plugin reads nothing, and the navigation is empty";

/// What is wrong with the Base64 text; @p isRead tells whether the plugin finds JSON in it all the same.
Findings checkBase64(const QString &file, const QByteArray &content, bool isRead)
{
    using Code = FindingCode;
    const auto found
        = [&](Code code, int offset, const QString &problem, const QString &effect, const QString &advice) {
              return Finding::atPlace(code, file, placeAt(content, offset), problem, effect, advice);
          };
    if (content.trimmed().isEmpty()) {
        return {found(Code::EmptyFile, 0, "the file is empty", nothingRead,
                      R"(write it with "tavctl catalogue encode" from the JSON text of a catalogue)")};
    }
    if (isUtf16(content)) {
        return {
            found(Code::Utf16, 0, "not Base64: the file is UTF-16", nothingRead, "save the file as UTF-8 or ASCII")};
    }
    if (Base64Text::isJsonText(content)) {
        return {found(Code::JsonWhereBase64Belongs, 0, "not Base64: this is the JSON text itself", nothingRead,
                      R"(encode it with "tavctl catalogue encode")")};
    }
    if (content.trimmed().startsWith("-----BEGIN")) {
        return {found(Code::PemArmour, content.indexOf('-'), "not Base64: lines stand around it", nothingRead,
                      "remove the lines that begin with dashes")};
    }
    Findings findings;
    const int nul = content.indexOf('\0');
    const QByteArray text = content.mid(0, nul); // all of it when there is none
    const int wrong = Base64Text::firstWrong(text);
    const QByteArray character = text.mid(wrong, 1);
    const Code code = isRead ? Code::StrayInBase64 : Code::NotBase64;
    const QString again = isRead
        ? R"(write what "tavctl catalogue decode --lenient" shows with "tavctl catalogue encode")"
        : R"(correct what "tavctl catalogue decode --lenient" shows, and write that with "tavctl catalogue encode")";
    if (wrong == text.size()) {
        findings.append(found(code, wrong, "not Base64: the text ends too early",
                              isRead ? "the plugin leaves the last character out and reads the rest" : nothingRead,
                              again));
    } else if (wrong >= 0 && (character == "-" || character == "_")) {
        findings.append(found(code, wrong, "not Base64: this character is of the alphabet for URLs",
                              isRead ? "the plugin leaves it out and reads the rest" : nothingRead,
                              R"(write "+" for each "-" and "/" for each "_")"));
    } else if (wrong >= 0) {
        findings.append(found(code, wrong, "not Base64: this character does not belong there",
                              isRead ? "the plugin leaves it out and reads the rest" : nothingRead, again));
    }
    if (nul >= 0) {
        findings.append(found(code, nul, "not Base64: a NUL byte",
                              isRead ? "the plugin reads only what stands before it"
                                     : "the plugin reads only what stands before it, and the navigation is empty",
                              again));
    }
    return findings;
}

/// Why the text is no JSON.
Finding checkNoJson(const QString &file, const QByteArray &json, const TavJsonText &text)
{
    if (Base64Text::firstWrong(json) < 0 && TavJsonText(Base64Text::decoded(json)).error().isEmpty()) {
        return Finding::atPlace(FindingCode::EncodedTwice, file, {1, 1}, "not JSON: the text is encoded twice",
                                nothingRead, R"(put the text there that "tavctl catalogue decode" shows)");
    }
    return Finding::ofNoJson(file, json, text, nothingRead);
}

Findings checkText(const QString &file, const QByteArray &json, const TavJsonText &text)
{
    if (!text.error().isEmpty()) {
        return {checkNoJson(file, json, text)};
    }
    EntryCheck entries;
    entries.checkFunctions(text.document().toArray(), QString());
    entries.checkParents();
    Findings findings = checkAgainstSchema("funcTypeConfig.schema.json", text.document());
    findings += entries.findings();
    const bool isBroken = std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.kind().severity == Severity::Error;
    });
    if (!isBroken && !entries.hasPages()) { // an error may be the reason
        findings.append(Finding::ofValue(FindingCode::NoVisiblePage, {}, "no entry has a page that is not disabled",
                                         "there is nothing to open", "add a page, or enable one"));
    }
    return located(std::move(findings), file, text);
}

/// The icons of the functions that are none of @p names: of all that the plugin reads, nested ones included.
void checkIconsOf(const QJsonArray &functions, const QString &path, const QSet<QString> &names, Findings &findings)
{
    for (int i = 0; i < functions.size(); ++i) {
        const QJsonObject function = functions[i].toObject();
        if (!function.contains("funcType")) {
            continue;
        }
        const QString functionPath = TavJson::elementPath(path, i);
        const QString icon = function["funcIcon"].toString();
        const bool isName = !icon.trimmed().isEmpty() && !icon.contains('.') && !icon.contains('/');
        if (isName && !names.contains(icon.toUpper())) {
            findings.append(Finding::ofValue(FindingCode::IconWithoutPicture, functionPath + "/funcIcon",
                                             "no picture directory holds the icon \"" + icon + '"',
                                             "the function is shown without an icon",
                                             "put " + icon + ".png into a picture directory, or name another picture"));
        }
        if (!function.contains("subFunList")) {
            checkIconsOf(function["funcList"].toArray(), functionPath + "/funcList", names, findings);
        }
    }
}

/// The pages that the plugin reads, of nested functions, too, whose controller is none of @p controllers.
void checkControllersOf(const QJsonArray &functions, const QString &path, const QStringList &controllers,
                        Findings &findings)
{
    for (int i = 0; i < functions.size(); ++i) {
        const QJsonObject function = functions[i].toObject();
        const QString functionPath = TavJson::elementPath(path, i);
        if (!function.contains("funcType")) {
            continue;
        }
        if (!function.contains("subFunList")) {
            checkControllersOf(function["funcList"].toArray(), functionPath + "/funcList", controllers, findings);
            continue;
        }
        const QJsonArray pages = function["subFunList"].toArray();
        for (int j = 0; j < pages.size(); ++j) {
            const QString name = pages[j]["subFuncClassName"].toString();
            if (!name.trimmed().isEmpty() && !pages[j]["disable"].toBool()
                && !controllers.contains(tavManagerKey(name.toUtf8().constData()).name)) {
                findings.append(
                    Finding::ofValue(FindingCode::PageWithoutController,
                                     TavJson::elementPath(functionPath + "/subFunList", j) + "/subFuncClassName",
                                     "no page plugin registers the controller \"" + name + '"',
                                     "the page cannot be opened, unless the client itself has the controller",
                                     "install the plugin of the page, or correct the name"));
            }
        }
    }
}

/// @p findings in the order of @p text, each with the place in the file that holds it as @p base64, too.
Findings inBase64(Findings findings, const QByteArray &base64, const TavJsonText &text)
{
    Base64Places places(base64);
    for (Finding &finding : findings) {
        finding.inText = finding.place;
        finding.place = places.at(qMax(0, text.error().isEmpty() ? finding.range.offset : text.errorOffset()));
    }
    return findings;
}
}

Findings checkCatalogue(const QString &file, const QByteArray &content)
{
    const QByteArray json = Base64Text::decoded(content);
    const TavJsonText text(json);
    const bool isRead = text.error().isEmpty();
    Findings findings = checkBase64(file, content, isRead);
    if (isRead || findings.isEmpty()) {
        findings += inBase64(checkText(file, json, text), content, text);
    }
    return findings;
}

Findings checkCatalogueOrText(const QString &file, const QByteArray &content)
{
    // Under the installed name the plugin reads the file itself, and takes it for Base64.
    const bool isInstalled = QFileInfo(file).fileName() == QFileInfo(InstallationPaths::catalogue()).fileName();
    return Base64Text::isJsonText(content) && !isInstalled ? checkText(file, content, TavJsonText(content))
                                                           : checkCatalogue(file, content);
}

Findings checkIcons(const QString &file, const QByteArray &content, const PictureFiles &pictures)
{
    QSet<QString> names;
    for (const PictureFile &picture : pictures.files) {
        names.insert(picture.name);
    }
    const TavJsonText text(Base64Text::decoded(content));
    Findings findings;
    checkIconsOf(text.document().toArray(), {}, names, findings);
    return inBase64(placed(findings, file, text), content, text);
}

Findings checkControllers(const QString &file, const QByteArray &content, const QStringList &controllers)
{
    const TavJsonText text(Base64Text::decoded(content));
    Findings findings;
    checkControllersOf(text.document().toArray(), {}, controllers, findings);
    return inBase64(placed(findings, file, text), content, text);
}
