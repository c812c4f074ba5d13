// SPDX-License-Identifier: MIT
#include <checker/tour/ksCommandClasses.h>
#include <tests/editor/ksModelCollection.h>
#include <tests/editor/ksProgram.h>

#include <gmock/gmock.h>

#include <sstream>

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
                testing::MatchesRegex("OK: [0-9]+ steps, [0-9]+ containers, 0 differences, " + all + " of " +
                                      all + " command classes"));
    std::istringstream lines(run.errors);
    for (std::string line; std::getline(lines, line);)
        EXPECT_THAT(line, StartsWith("ks-checker: warning: "));
}

void expectRefusal(const ksProgram &run, const QString &file)
{
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errorLines(), 1);
    EXPECT_THAT(run.errors, StartsWith("ks-checker: " + file.toStdString() + ": "));
}

using ksModelCollectionTour = ksModelCollection;

} // namespace

/// Every file can be toured without a difference or gives one line that says why it cannot be read.
TEST_P(ksModelCollectionTour, IsTouredOrRefused)
{
    for (const QString &file : files()) {
        SCOPED_TRACE(file.toStdString());
        const ksProgram run(QStringLiteral(KS_CHECKER), {QStringLiteral("--headless"), file});
        if (run.exitCode == 0)
            expectTour(run);
        else
            expectRefusal(run, file);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, ksModelCollectionTour,
                         testing::ValuesIn(ksModelCollection::formatFolders()), ksModelCollection::testName);
