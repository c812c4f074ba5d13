// SPDX-License-Identifier: MIT
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/ksEditorProgram.h>

#include <QFile>

namespace {

using testing::EndsWith;
using testing::StartsWith;

const std::string Usage = "usage: ks-editor --headless MODEL [--script FILE]\n";

} // namespace

TEST(ksEditorProgram, ToursTheRoom)
{
    const ksEditorProgram run({QStringLiteral("--headless"), ksRoomFile()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, EndsWith(" 270 containers, 0 differences, 52 of 52 command classes\n"));
}

TEST(ksEditorProgram, RunsTheScriptOfTheRoom)
{
    const ksEditorProgram run({QStringLiteral("--headless"), ksRoomFile(), QStringLiteral("--script"),
                               QStringLiteral(KS_ROOM_SCRIPT)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, EndsWith(" 270 containers, 0 differences\n"));
}

TEST(ksEditorProgram, GivesTheSameTranscriptAtEveryRun)
{
    const QStringList arguments{QStringLiteral("--headless"), ksRoomFile()};
    EXPECT_EQ(ksEditorProgram(arguments).output, ksEditorProgram(arguments).output);
}

TEST(ksEditorProgram, ShowsTheUsageForAWrongCommandLine)
{
    const std::pair<QStringList, std::string> cases[] = {
        {{}, "--headless is missing"},
        {{QStringLiteral("--headless")}, "no model is given"},
        {{QStringLiteral("--headless"), QStringLiteral("--wat"), ksRoomFile()}, "unknown option --wat"}};
    for (const auto &[arguments, reason] : cases) {
        const ksEditorProgram run(arguments);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.errors, "ks-editor: " + reason + '\n' + Usage);
        EXPECT_EQ(run.output, "");
    }
}

TEST(ksEditorProgram, SaysInOneLineWhyAModelCannotBeRead)
{
    const ksTestFolder folder;
    folder.write("empty.gltf", "");
    folder.write("broken.dae", "<COLLADA");
    folder.write("broken.obj", "v 0 0 0\nf 1 2 3\n");
    folder.write("corners.off", "OFF\n4 2 0\n0 0 0\n1 0 0\n0 1 0\n1 1 0\n3 0 1 2\n");
    folder.write("camera.ogex", "CameraObject {}\n");
    for (const char *name :
         {"missing.gltf", "empty.gltf", "broken.dae", "broken.obj", "corners.off", "camera.ogex", ""}) {
        const ksEditorProgram run({QStringLiteral("--headless"), folder.path(name)});
        EXPECT_EQ(run.exitCode, 1) << name;
        EXPECT_THAT(run.errors, StartsWith("ks-editor: " + folder.path(name).toStdString() + ": ")) << name;
        EXPECT_EQ(run.errorLines(), 1) << run.errors;
        EXPECT_EQ(run.output, "") << name;
    }
}

TEST(ksEditorProgram, SaysInOneLineWhereAScriptFailed)
{
    const ksTestFolder folder;
    const QString script = folder.write("script.js", "print(1);\nscene.find('Tabel');\n");
    const ksEditorProgram run(
        {QStringLiteral("--headless"), ksRoomFile(), QStringLiteral("--script"), script});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "ks-editor: " + script.toStdString() + ":2: Error: there is no node 'Tabel'\n");
}

/// Running the model's script again gives the files that are there.
TEST(ksEditorProgram, RoomCanBeMadeAgain)
{
    const ksTestFolder folder;
    QProcess python;
    python.start(QStringLiteral("python3"), {ksRoomFile("make_room.py"), folder.path("")});
    ASSERT_TRUE(python.waitForFinished(-1)) << python.errorString().toStdString();
    ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    for (const char *name :
         {"room.gltf", "room.bin", "planks.png", "plaster.png", "painting.png", "fabric.png"}) {
        QFile kept(ksRoomFile(name));
        QFile made(folder.path(name));
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly) && made.open(QIODevice::ReadOnly)) << name;
        EXPECT_EQ(kept.readAll(), made.readAll()) << name;
    }
}
