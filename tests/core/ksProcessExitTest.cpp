// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace {

class ksProcessExit : public testing::TestWithParam<const char *>
{};

} // namespace

/// Stacks live in static objects, which go after main has returned, and so do commands and what these hold.
TEST_P(ksProcessExit, DeletesTheCommandsOfBothStacksQuietly)
{
    QTemporaryDir runtimeDirectory;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDirectory.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));

    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KS_EXIT_PROGRAM), {QString::fromUtf8(GetParam())});
    ASSERT_TRUE(process.waitForFinished(120000)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    EXPECT_EQ(process.readAllStandardOutput().toStdString(),
              "done in 1\nundone in 1\ndone in 0\nundone in 0\n");
}

INSTANTIATE_TEST_SUITE_P(Ways, ksProcessExit,
                         testing::Values("stack-first", "scene-first", "one-window", "exit"));
