#include "ScenarioCheck.h"

#include "TavScenario.h"

#include <optional>

namespace
{
const char *const endsBefore = "a play ends before this line";

Finding findingOf(const QString &file, const TavScenarioError &error)
{
    using Kind = TavScenarioError::Kind;
    const auto found = [&](FindingCode code, const QString &effect, const QString &advice) {
        Finding finding
            = Finding::atPlace(code, file, {error.line(), qMax(1, error.column())}, error.problem(), effect, advice);
        finding.path = error.path();
        return finding;
    };
    switch (error.kind()) {
    case Kind::Header:
        return found(FindingCode::NoScenario, "it cannot be played", R"(begin it with the line {"tavScenario": 1})");
    case Kind::Cut:
        return found(FindingCode::ScenarioLineCut, endsBefore,
                     R"(complete the line, or remove it; "tavctl play --partial" leaves it out)");
    case Kind::Key:
        return found(FindingCode::ScenarioKey, endsBefore,
                     R"(write "page", or "manager", "operation" and "arguments", each once)");
    case Kind::Call:
        return found(FindingCode::NoSuchCall, endsBefore,
                     R"(name one that "tavctl operations" lists, or a page by its type)");
    case Kind::Arguments:
        return found(FindingCode::ScenarioArguments, endsBefore,
                     R"(write what "tavctl operations" says that the operation takes)");
    case Kind::Time:
        return found(FindingCode::ScenarioTime, endsBefore,
                     "write seconds from the beginning, no fewer than the line before has");
    case Kind::Thread:
        return found(FindingCode::ScenarioThread, endsBefore,
                     R"(write another thread, or leave "thread" out, which means "agent")");
    case Kind::Returns:
        return found(FindingCode::ScenarioReturns, endsBefore,
                     R"(write what the operation can return, or leave "returns" out)");
    case Kind::Indeterminate:
        return found(FindingCode::ScenarioIndeterminate, endsBefore,
                     "call the setter in a line before, or remove this one");
    case Kind::Line:
    case Kind::Play: // which only playing finds
        break;
    }
    return found(FindingCode::ScenarioLine, error.line() == 1 ? "it cannot be played" : endsBefore,
                 "write one JSON object in the line");
}
}

Findings checkScenario(const QString &file, QIODevice &device)
{
    Findings findings;
    std::optional<TavScenarioReader> reader;
    bool isAtEnd = false;
    while (!isAtEnd) {
        try {
            if (!reader) {
                reader.emplace(device);
            }
            TavScenario::Line line;
            isAtEnd = !reader->next(line);
        } catch (const TavScenarioError &error) {
            findings.append(findingOf(file, error));
            isAtEnd = !reader; // without its first line it is no scenario
        }
    }
    return findings;
}
