#include "ScenarioSurvey.h"

#include "TavScenario.h"

#include <QFile>
#include <QFileInfo>

ScenarioSurvey surveyScenario(const QString &file, const std::atomic<bool> &isCancelled)
{
    ScenarioSurvey survey;
    survey.file = file;
    const QFileInfo info(file);
    QFile input(file);
    if (!info.exists()) {
        survey.error = "there is no such file";
    } else if (!info.isFile()) {
        survey.error = "not a regular file";
    } else if (!input.open(QIODevice::ReadOnly)) {
        survey.error = "cannot be read: " + input.errorString();
    }
    if (!survey.error.isEmpty()) {
        return survey;
    }
    try {
        TavScenarioReader reader(input);
        survey.title = reader.header()["title"].toString();
        TavScenario::Line line;
        while (reader.next(line)) {
            ++survey.lines;
            survey.end = line.at;
            if (isCancelled) {
                survey.error = "the reading was stopped";
                return survey;
            }
        }
    } catch (const std::exception &error) {
        survey.error = QString::fromUtf8(error.what());
    }
    return survey;
}
