#include "CatalogueCheck.h"

#include "Base64Text.h"
#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"
#include "SchemaCheck.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaEnum>

namespace
{
/// The value that a type's key has; 0, which stands for no function or page, also for what is no key.
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
            const QString functionPath = memberPath(path, QString::number(i));
            if (function.contains("funcType")) {
                checkFunction(function, functionPath);
            }
        }
    }

    /// To be called when all functions have been gone through.
    void checkParents()
    {
        for (const Parent &parent : qAsConst(m_parents)) {
            if (!m_pages.contains(parent.type)) {
                m_findings.append({{},
                                   {},
                                   parent.path,
                                   '"' + parent.key + "\" is a parent that does not exist",
                                   "the plugin stores the type, under which the catalogue has no page",
                                   "name a page of the catalogue, or add this one"});
            }
        }
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

    struct Parent {
        QString path;
        QString key;
        int type;
    };

    void checkFunction(const QJsonObject &function, const QString &path)
    {
        const QString key = function["funcType"].toString();
        const int type = typeOf<CTavFuncTypeHeader::TavFuncTypeHeader_>(key);
        const Function self{path, function["funcTitle"].toString(), function["funcIcon"].toString()};
        const Function first = m_functions.value(type, self);
        if (type > 0 && (first.title != self.title || first.icon != self.icon)) {
            m_findings.append({{},
                               {},
                               path + "/funcType",
                               '"' + key + "\" stands already at " + first.path + ", with another title or icon",
                               "look-ups find the first entry, and this title and icon are not shown",
                               "write the title and icon of the first, or another type"});
        }
        m_functions.insert(type, first);
        if (function.contains("subFunList")) {
            checkPages(function["subFunList"].toArray(), path + "/subFunList");
        } else {
            checkFunctions(function["funcList"].toArray(), path + "/funcList");
        }
    }

    void checkPages(const QJsonArray &pages, const QString &path)
    {
        for (int i = 0; i < pages.size(); ++i) {
            const QJsonObject page = pages[i].toObject();
            if (!page["disable"].toBool()) {
                checkPage(page, memberPath(path, QString::number(i)));
            }
        }
    }

    void checkPage(const QJsonObject &page, const QString &path)
    {
        using Type = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;
        const int type = typeOf<Type>(page["subFuncType"]);
        const QString first = m_pages.value(type, path);
        if (type > 0 && first != path) {
            m_findings.append({{},
                               {},
                               path + "/subFuncType",
                               '"' + page["subFuncType"].toString() + "\" stands already at " + first,
                               "look-ups find the first entry, and this title and controller are not shown",
                               "remove or disable one of them, or write another type"});
        }
        m_pages.insert(type, first);
        const int parent = typeOf<Type>(page["realParentType"]);
        if (parent > 0 && page.contains("subFuncHasParent") && !page["subFuncHasParent"].toBool()) {
            m_parents.append({path + "/realParentType", page["realParentType"].toString(), parent});
        }
    }

    QHash<int, Function> m_functions; // the first entry of each type
    QHash<int, QString> m_pages; // path of the first page of each type
    QVector<Parent> m_parents;
    Findings m_findings;
};
}

Findings checkCatalogue(const QString &file, const QByteArray &content)
{
    Findings findings;
    const JsonText text(Base64Text::decoded(content));
    const int wrong = Base64Text::firstWrong(content);
    if (wrong >= 0) {
        findings.append({file,
                         placeAt(content, wrong),
                         {},
                         wrong < content.size() ? "not Base64: this character does not belong there"
                                                : "not Base64: the text ends too early",
                         text.error().isEmpty() ? "the plugin leaves it out and reads the rest"
                                                : "the plugin reads nothing, and the navigation is empty",
                         "encode the JSON text with \"tavctl catalogue encode\""});
    }
    if (!text.error().isEmpty()) {
        if (findings.isEmpty()) {
            findings.append({file,
                             text.errorPlace(),
                             {},
                             "not JSON: " + text.error(),
                             "the plugin reads nothing, and the navigation is empty",
                             "correct the text that \"tavctl catalogue decode\" shows"});
        }
        return findings;
    }
    EntryCheck entries;
    entries.checkFunctions(text.document().toArray(), QString());
    entries.checkParents();
    return findings
        + located(checkAgainstSchema("funcTypeConfig.schema.json", text.document()) + entries.findings(), file, text);
}
