// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace {

/// A way to leave, and what the commands have to say that go in the course of it.
struct Way
{
    const char *name;
    const char *said;

    friend std::ostream &operator<<(std::ostream &stream, const Way &way) { return stream << way.name; }
};

class ksProcessExit : public testing::TestWithParam<Way>
{};

/// Expects that \a program with \a argument writes \a output and no errors.
void expectQuiet(const QString &program, const QString &argument, const std::string &output)
{
    QTemporaryDir runtimeDirectory;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDirectory.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));

    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, {argument});
    ASSERT_TRUE(process.waitForFinished(120000)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    EXPECT_EQ(process.readAllStandardOutput().toStdString(), output);
}

constexpr const char *all = "done in 1 2\nundone in 1 1\ndone in 0 2\nundone in 0 1\n";

} // namespace

/// Stacks live in static objects, which go after main has returned, and so do commands and what these hold.
TEST_P(ksProcessExit, DeletesTheCommandsOfBothStacksQuietly)
{
    expectQuiet(QStringLiteral(KS_EXIT_PROGRAM), QString::fromUtf8(GetParam().name), GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, ksProcessExit,
    testing::Values(
        Way{"scene-first", all}, Way{"one-window", all}, Way{"exit", all}, Way{"no-application", all},
        Way{"stack-first", "done in 1 2\nundone in 1 1\nwithout a scene 0\ndone in 0 2\nundone in 0 1\n"},
        Way{"statics", "done in 1 2\nundone in 1 1\ndone in 0 2\nundone in 0 1\nstatic 1\n"},
        Way{"application-gone", "undone in 0 1\ndone in 0 1\ndone in 1 2\nundone in 1 1\nlate 2\n"},
        Way{"scene-gone", "done in 1 2\nundone in 1 1\ndone in 0 1\nundone in 0 1\n"},
        Way{"scene-gone-cleared", "done in 0 2\nundone in 0 1\ndone in 1 2\nundone in 1 1\n"},
        Way{"scene-again", "undone in 1 1\ndone in 1 2\nadded 2\ndone in 0 2\nundone in 0 2\n"}));

/// A program that knows nothing of the library opens and closes a plugin that uses it, twice.
TEST(ksLibraryUnload, LeavesTheHistoryAsItIs)
{
    expectQuiet(QStringLiteral(KS_UNLOAD_PROGRAM), QStringLiteral(KS_UNLOAD_PLUGIN),
                "1 done\n2 done\nclosed\n2 undone\nclosed\n1 gone\n2 gone\n");
}
