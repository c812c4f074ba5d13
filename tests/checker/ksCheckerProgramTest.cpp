// SPDX-License-Identifier: MIT
#include <checker/tour/ksCommandClasses.h>
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/ksProgram.h>

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
                                       all + " of " + all + " command classes\n$"));
}

TEST(ksCheckerProgram, RunsTheScriptOfTheRoom)
{
    const ksProgram run = runScript(QStringLiteral(KS_ROOM_SCRIPT));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output,
                testing::ContainsRegex(" 270 containers, 0 differences, [1-9][0-9]* within tolerance\n$"));
}

TEST(ksCheckerProgram, GivesTheSameTranscriptAtEveryRun)
{
    const QStringList arguments{QStringLiteral("--headless"), ksRoomFile()};
    EXPECT_EQ(runChecker(arguments).output, runChecker(arguments).output);
}

TEST(ksCheckerProgram, GoesByItsOwnName)
{
    const ksTestFolder folder;
    const ksProgram usage = runChecker({});
    EXPECT_EQ(usage.exitCode, 2);
    EXPECT_EQ(usage.errors,
              "ks-checker: --headless is missing\nusage: ks-checker --headless MODEL [--script FILE]\n");
    const ksProgram model = runChecker({QStringLiteral("--headless"), folder.path("missing.gltf")});
    EXPECT_EQ(model.exitCode, 1);
    EXPECT_EQ(model.errors, "ks-checker: " + folder.path("missing.gltf").toStdString() + ": no such file\n");
    const QString path = folder.write("script.js", "\nhistory.endMacro();");
    const ksProgram script = runScript(path);
    EXPECT_EQ(script.exitCode, 3);
    EXPECT_EQ(script.errors, "ks-checker: " + path.toStdString() + ":2: Error: there is no open macro\n");
}
