#include "ScenarioDialog.h"

#include "TextFile.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

TEST(ScenarioDialog, BeginsWhereAScenarioWasChosenLastForWhateverPurpose)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath("one.jsonl");
    writeFile(file, "{}");
    QWidget parent;
    QFileDialog *const saving = newScenarioDialog(&parent, "title", QFileDialog::AcceptSave);
    saving->selectFile(directory.filePath("two"));
    saving->open();
    QString chosen;
    QObject::connect(saving, &QFileDialog::fileSelected, &parent, [&chosen](const QString &name) { chosen = name; });
    static_cast<QDialog *>(saving)->accept();
    EXPECT_EQ(chosen.toStdString(), directory.filePath("two.jsonl").toStdString());
    const std::unique_ptr<QFileDialog> opening(newScenarioDialog(&parent, "title", QFileDialog::AcceptOpen));
    EXPECT_EQ(opening->directory().path().toStdString(), directory.path().toStdString());
    EXPECT_EQ(opening->fileMode(), QFileDialog::ExistingFile);
}

TEST(ScenarioDialog, KeepsTheFolderThatItHadWhenNothingIsChosen)
{
    const QTemporaryDir directory;
    QWidget parent;
    const std::unique_ptr<QFileDialog> first(newScenarioDialog(&parent, "title", QFileDialog::AcceptOpen));
    const QString before = first->directory().path();
    first->setDirectory(directory.path());
    first->reject();
    const std::unique_ptr<QFileDialog> second(newScenarioDialog(&parent, "title", QFileDialog::AcceptOpen));
    EXPECT_EQ(second->directory().path().toStdString(), before.toStdString());
}
