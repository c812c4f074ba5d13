// SPDX-License-Identifier: MIT
#include <checker/tour/ksCommandClasses.h>
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/ksProgram.h>

#include <algorithm>

namespace {

using testing::EndsWith;

ksProgram runChecker(const QStringList &arguments)
{
    return {QStringLiteral(KS_CHECKER), arguments};
}

ksProgram runScript(const QString &script)
{
    return runChecker({QStringLiteral("--headless"), ksRoomFile(), QStringLiteral("--script"), script});
}

} // namespace

TEST(ksCheckerProgram, ToursTheRoom)
{
    const ksProgram run = runChecker({QStringLiteral("--headless"), ksRoomFile()});
    const std::string all = std::to_string(ksCommandClasses::all().size());
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output,
                testing::ContainsRegex(" 270 containers, 0 differences, [1-9][0-9]* within tolerance, " +
                                       all + " of " + all + " command classes, 0 warnings\n$"));
    // A few screens at most.
    EXPECT_LT(std::count(run.output.begin(), run.output.end(), '\n'), 20);
}

TEST(ksCheckerProgram, RunsTheScriptOfTheRoom)
{
    const ksProgram run = runScript(QStringLiteral(KS_ROOM_SCRIPT));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output,
                testing::ContainsRegex(
                    " 270 containers, 0 differences, [1-9][0-9]* within tolerance, 0 warnings\n$"));
}

TEST(ksCheckerProgram, GivesTheSameTranscriptAtEveryRun)
{
    const QStringList arguments{QStringLiteral("--headless"), QStringLiteral("--verbose"), ksRoomFile()};
    EXPECT_EQ(runChecker(arguments).output, runChecker(arguments).output);
}

TEST(ksCheckerProgram, HelpsWithAllItsExitCodes)
{
    const ksProgram run = runChecker({QStringLiteral("--help")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, testing::ContainsRegex("\n  0  .*\n  1  .*\n  2  .*\n  3  .*\n"
                                                   "  4  the scene differed from the history.*\n  5  "));
}

TEST(ksCheckerProgram, GoesByItsOwnName)
{
    const ksTestFolder folder;
    const ksProgram usage = runChecker({});
    EXPECT_EQ(usage.exitCode, 2);
    EXPECT_EQ(usage.errors,
              "ks-checker: --headless is missing\nusage: ks-checker --headless MODEL [OPTION...] "
              "[--output FILE] [--script FILE [-- ARGUMENT...]]\n");
    const ksProgram model = runChecker({QStringLiteral("--headless"), folder.path("missing.gltf")});
    EXPECT_EQ(model.exitCode, 1);
    EXPECT_EQ(model.errors, "ks-checker: " + folder.path("missing.gltf").toStdString() + ": no such file\n");
    const QString path = folder.write("script.js", "\nhistory.endMacro();");
    const ksProgram script = runScript(path);
    EXPECT_EQ(script.exitCode, 3);
    EXPECT_EQ(script.errors, "ks-checker: " + path.toStdString() + ":2: Error: there is no open macro\n");
}
