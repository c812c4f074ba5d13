// SPDX-License-Identifier: MIT
#include <checker/tour/ksCommandClasses.h>
#include <tests/editor/ksModelCollection.h>
#include <tests/editor/ksProgram.h>

#include <QtConcurrent>
#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <vector>

namespace {

using testing::StartsWith;

/// The verdict, and every line that tells a difference before it.
std::string resultOf(const std::string &transcript)
{
    std::istringstream lines(transcript);
    std::string faults;
    std::string verdict;
    for (std::string line; std::getline(lines, line); verdict = line)
        for (const char *fault : {"  DIFFERS ", "  STALE ", "  FAILS "})
            if (line.rfind(fault, 0) == 0)
                faults += line + '\n';
    return faults + verdict;
}

void expectTour(const ksProgram &run)
{
    const std::string all = std::to_string(ksCommandClasses::all().size());
    EXPECT_THAT(resultOf(run.output),
                testing::MatchesRegex(
                    "OK: [0-9]+ steps, [0-9]+ containers, 0 differences, [0-9]+ within tolerance, " + all +
                    " of " + all + " command classes, [0-9]+ warnings?"));
    std::istringstream lines(run.errors);
    for (std::string line; std::getline(lines, line);)
        EXPECT_THAT(line, StartsWith("ks-checker: warning: "));
}

void expectRefusal(const ksProgram &run, const QString &file)
{
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "FAILED: no scene, 0 warnings\n");
    EXPECT_EQ(run.errorLines(), 1);
    EXPECT_THAT(run.errors, StartsWith("ks-checker: " + file.toStdString() + ": "));
}

ksProgram tourOf(const QString &file)
{
    return {QStringLiteral(KS_CHECKER), {QStringLiteral("--headless"), file}};
}

} // namespace

/// Every file can be toured without a difference or gives one line that says why it cannot be read. As many
/// tours run at a time as there are processors.
TEST(ksModelCollectionTour, EveryFileIsTouredOrRefused)
{
    int count = 0;
    QStringList files;
    for (const std::string &folder : ksModelCollection::formatFolders()) {
        const QStringList filesOfFolder = ksModelCollection::filesOf(folder);
        count += filesOfFolder.size();
        files += ksModelCollection::sampleOf(filesOfFolder);
    }
    if (files.isEmpty())
        GTEST_SKIP() << ksModelCollection::Missing;

    std::cout << files.size() << " of " << count << " models\n";
    const auto runs = QtConcurrent::blockingMapped<std::vector<ksProgram>>(files, &tourOf);
    for (int i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(files[i].toStdString());
        if (runs[i].exitCode == 0)
            expectTour(runs[i]);
        else
            expectRefusal(runs[i], files[i]);
    }
}
