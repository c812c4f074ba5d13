// SPDX-License-Identifier: MIT
#include "ksEditorProgram.h"

#include <QDir>
#include <QFileInfo>
#include <gmock/gmock.h>

#include <sstream>
#include <vector>

namespace {

using testing::StartsWith;

const QString Collection = QStringLiteral(KS_MODEL_COLLECTION);

/// Larger files hold more of the same and take the time of all others together.
constexpr qint64 LargestFile = 40000;

/// A folder with more files than that holds variants of one model.
constexpr int MostFilesOfAFolder = 10;

/// It announces a number of vertices for which its reader takes 16 GB of memory before it refuses it.
const QString Bomb = QStringLiteral("OutOfMemory.off");

/// The folders of the collection, or one empty name when it is not installed.
std::vector<std::string> formatFolders()
{
    std::vector<std::string> names;
    for (const QString &name : QDir(Collection).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        names.push_back(name.toStdString());
    if (names.empty())
        names.emplace_back();
    return names;
}

/// The files at and below \a folder that are tried.
QStringList filesToTry(const QString &folder)
{
    QStringList chosen;
    const QDir directory(folder);
    for (const QFileInfo &file : directory.entryInfoList(QDir::Files, QDir::Name))
        if (file.size() <= LargestFile && file.fileName() != Bomb && chosen.size() < MostFilesOfAFolder)
            chosen += file.filePath();
    for (const QFileInfo &below : directory.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        chosen += filesToTry(below.filePath());
    return chosen;
}

void expectTour(const ksEditorProgram &run)
{
    EXPECT_THAT(run.output,
                testing::ContainsRegex("\nOK: [0-9]+ steps, [0-9]+ containers, 0 differences\n$"));
    std::istringstream lines(run.errors);
    for (std::string line; std::getline(lines, line);)
        EXPECT_THAT(line, StartsWith("ks-editor: warning: "));
}

void expectRefusal(const ksEditorProgram &run, const QString &file)
{
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errorLines(), 1);
    EXPECT_THAT(run.errors, StartsWith("ks-editor: " + file.toStdString() + ": "));
}

class ksModelCollection : public testing::TestWithParam<std::string>
{};

} // namespace

/// Every file can be toured without a difference or gives one line that says why it cannot be read.
TEST_P(ksModelCollection, IsTouredOrRefused)
{
    if (GetParam().empty())
        GTEST_SKIP() << "there are no models in " KS_MODEL_COLLECTION
                        ": the package assimp-testmodels is missing";
    const QStringList files = filesToTry(Collection + QLatin1Char('/') + QString::fromStdString(GetParam()));
    for (const QString &file : files) {
        SCOPED_TRACE(file.toStdString());
        const ksEditorProgram run({QStringLiteral("--headless"), file});
        if (run.exitCode == 0)
            expectTour(run);
        else
            expectRefusal(run, file);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, ksModelCollection, testing::ValuesIn(formatFolders()),
                         [](const auto &info) {
                             return info.param.empty() ? std::string("none") : 'f' + info.param;
                         });
