// SPDX-License-Identifier: MIT
#include <editor/session/ksMemory.h>
#include <tests/editor/ksEditorFixture.h>
#include <tests/editor/ksProgram.h>

#include <QFile>

#include <csignal>
#include <sstream>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::string Usage =
    "ks-editor [MODEL] [--select NODE] [--screenshot FILE]\n"
    "       ks-editor --headless MODEL [OPTION...] [--output FILE] [--script FILE [-- ARGUMENT...]]\n";

ksProgram runEditor(const QStringList &arguments)
{
    return {QStringLiteral(KS_EDITOR), arguments};
}

ksProgram runScript(const QString &script)
{
    return runEditor({QStringLiteral("--headless"), ksRoomFile(), QStringLiteral("--script"), script});
}

} // namespace

TEST(ksEditorProgram, OpensTheRoom)
{
    const ksProgram run = runEditor({QStringLiteral("--headless"), ksRoomFile()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "model room.gltf: 58 nodes; left out: 1 camera\nOK: 0 steps, 0 warnings\n");
}

TEST(ksEditorProgram, RunsTheScriptOfTheRoom)
{
    const ksProgram run = runScript(QStringLiteral(KS_ROOM_SCRIPT));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, EndsWith(" steps, 0 warnings\n"));
}

TEST(ksEditorProgram, ShowsTheUsageForAWrongCommandLine)
{
    const std::pair<QStringList, std::string> cases[] = {
        {{QStringLiteral("--quiet")}, "--headless is missing, which the other options need"},
        {{QStringLiteral("--headless")}, "no model is given"},
        {{QStringLiteral("--headless"), QStringLiteral("--wat"), ksRoomFile()}, "unknown option --wat"}};
    for (const auto &[arguments, reason] : cases) {
        const ksProgram run = runEditor(arguments);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.errors, "ks-editor: " + reason + "\nusage: " + Usage);
        EXPECT_EQ(run.output, "");
    }
}

TEST(ksEditorProgram, SaysWhatItIs)
{
    const ksProgram help = runEditor({QStringLiteral("--help")});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.errors, "");
    EXPECT_THAT(help.output, StartsWith("Usage: " + Usage + "\nEdits 3D models, in a window"));
    EXPECT_THAT(help.output, HasSubstr("\n  --script FILE  "));
    const ksProgram version = runEditor({QStringLiteral("--version")});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.errors, "");
    EXPECT_EQ(version.output, "ks-editor " KSUNDO_VERSION "\n");
}

TEST(ksEditorProgram, SaysThatThereIsNoScreen)
{
    const ksProgram run = runEditor({});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_EQ(run.errors,
              "ks-editor: there is no screen for the window; --headless goes without: could not connect "
              "to display\n");
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
        const ksProgram run = runEditor({QStringLiteral("--headless"), folder.path(name)});
        EXPECT_EQ(run.exitCode, 1) << name;
        EXPECT_THAT(run.errors, StartsWith("ks-editor: " + folder.path(name).toStdString() + ": ")) << name;
        EXPECT_EQ(run.errorLines(), 1) << run.errors;
        EXPECT_EQ(run.output, "FAILED: no scene, 0 warnings\n") << name;
    }
}

/// Names of files are in UTF-8, whatever the locale says.
TEST(ksEditorProgram, OpensFilesOfAnyName)
{
    const ksTestFolder folder;
    for (const char *name : {"room.bin", "planks.png", "plaster.png", "painting.png", "fabric.png"})
        ASSERT_TRUE(QFile::copy(ksRoomFile(name), folder.path(name))) << name;
    std::ostringstream room;
    room << std::ifstream(ksRoomFile().toStdString()).rdbuf();
    const std::string name = "K\xc3\xbc"
                             "che.gltf";
    folder.write(name, room.str());
    for (const char *locale : {"C", "C.UTF-8"}) {
        // The shell hands over the bytes that the name consists of.
        const ksProgram run(
            QStringLiteral("sh"),
            {QStringLiteral("-c"),
             QStringLiteral("cd \"$1\" && export LC_ALL=$2 && exec \"$0\" --headless K*che.gltf "
                            "--output K*che.gltf"),
             QStringLiteral(KS_EDITOR), folder.path(""), QString::fromLatin1(locale)});
        EXPECT_EQ(run.exitCode, 0) << locale;
        EXPECT_EQ(run.errors, "") << locale;
        EXPECT_THAT(run.output, StartsWith("model " + name + ": 58 nodes")) << locale;
        EXPECT_THAT(run.output, HasSubstr("\nsaved " + name + "\n")) << locale;
    }
}

/// In one line, and those of the call stack if there is one.
TEST(ksEditorProgram, SaysWhereAScriptFailed)
{
    const ksTestFolder folder;
    const std::pair<const char *, std::string> cases[] = {
        {"print(1);\nscene.find('Tabel');\n", ":2: Error: there is no node 'Tabel'"},
        {"\n\nhistory.endMacro();\n", ":3: Error: there is no open macro"},
        {"\nhistory.beginMacro('Half');\n", ":2: Error: the macro 'Half' is not ended"},
        {"history.macro('m', function () {\n    nothing();\n});\n",
         ":2: ReferenceError: nothing is not defined\n    at script.js:2\n    at script.js:1"},
        {"scene.root.drag('travMask', [1,\n 2, -3]);\n",
         ":1: Error: 'travMask' is a whole number from 0 to 4294967295, not -3"}};
    for (const auto &[script, error] : cases) {
        const QString path = folder.write("script.js", script);
        const ksProgram run = runScript(path);
        EXPECT_EQ(run.exitCode, 3) << script;
        EXPECT_EQ(run.errors, "ks-editor: " + path.toStdString() + error + '\n');
    }
}

/// The language's own functions look at no limit.
TEST(ksEditorProgram, EndsByForceWhatDoesNotHeedItsLimit)
{
    if (!ksMemoryGuard::isEffective())
        GTEST_SKIP() << "the sanitizers' own memory counts as the program's";
    const ksTestFolder folder;
    const QString path = folder.write("script.js", "new Array(4000000000).fill(7);\n");
    const ksProgram run = runEditor({QStringLiteral("--headless"), ksRoomFile(), QStringLiteral("--script"),
                                     path, QStringLiteral("--memory-limit"), QStringLiteral("300")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors, "ks-editor: " + path.toStdString() + ": out of memory\n");
    EXPECT_EQ(run.output, "model room.gltf: 58 nodes; left out: 1 camera\nFAILED: ended by force\n");
}

TEST(ksEditorProgram, FailsWhereFilesMayNotBeSoLarge)
{
    const ksTestFolder folder;
    const ksProgram run(QStringLiteral("sh"),
                        {QStringLiteral("-c"),
                         QStringLiteral("ulimit -f 20 && exec \"$0\" --headless \"$1\" --output \"$2\""),
                         QStringLiteral(KS_EDITOR), ksRoomFile(), folder.path("large.glb")});
    EXPECT_EQ(run.exitCode, 5);
    EXPECT_THAT(run.errors, StartsWith("ks-editor: " + folder.path("large.glb").toStdString() + ": "));
    EXPECT_FALSE(QFile::exists(folder.path("large.glb")));
}

TEST(ksEditorProgram, WritesNoColoursIntoFiles)
{
    const ksProgram run = runScript(QStringLiteral(KS_ROOM_SCRIPT));
    EXPECT_THAT(run.output, testing::Not(HasSubstr("\x1b")));
}

/// Unless the environment says that there shall be none.
TEST(ksEditorProgram, WritesColoursToATerminal)
{
    const auto runInTerminal = [](const QString &variable) {
        return ksProgram(QStringLiteral("env"),
                         {QStringLiteral("TERM=xterm"), QStringLiteral("NO_COLOR="), variable,
                          QStringLiteral("python3"), QStringLiteral("-c"),
                          QStringLiteral("import pty, sys; pty.spawn(sys.argv[1:])"),
                          QStringLiteral(KS_EDITOR), QStringLiteral("--headless"), ksRoomFile()});
    };
    EXPECT_THAT(runInTerminal(QStringLiteral("TERM=xterm")).output,
                EndsWith("\x1b[32mOK: 0 steps, 0 warnings\x1b[0m\r\n"));
    for (const QString &variable : {QStringLiteral("NO_COLOR=1"), QStringLiteral("TERM=dumb")})
        EXPECT_THAT(runInTerminal(variable).output, EndsWith("\nOK: 0 steps, 0 warnings\r\n"));
}

TEST(ksEditorProgram, EndsOrderlyWhenItIsInterrupted)
{
    const ksTestFolder folder;
    const QString script = folder.write("script.js", "scene.find('Table').set('travMask', 1, 'Hide');\n"
                                                     "history.beginMacro('Half');\n"
                                                     "while (true) {}\n");
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment());
    process.start(QStringLiteral(KS_EDITOR),
                  {QStringLiteral("--headless"), ksRoomFile(), QStringLiteral("--script"), script});
    // The first line of a step is out as soon as it is done.
    QByteArray output;
    while (!output.contains("step 1: Hide"))
        if (process.waitForReadyRead(-1))
            output += process.readAllStandardOutput();
        else
            break;
    ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    ASSERT_TRUE(process.waitForFinished(-1));
    output += process.readAllStandardOutput();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 3);
    EXPECT_EQ(process.readAllStandardError().toStdString(),
              "ks-editor: " + script.toStdString() + ": interrupted\n");
    EXPECT_THAT(output.toStdString(), testing::ContainsRegex("\nFAILED: [0-9] steps?, 0 warnings\n$"));
}

/// It announces a thousand million corners, which would take 12 GB.
TEST(ksEditorProgram, RefusesAModelThatTakesAllMemory)
{
    if (!ksMemoryGuard::isEffective())
        GTEST_SKIP() << "the sanitizers reserve more memory than there is";
    const ksTestFolder folder;
    const ksProgram run =
        runEditor({QStringLiteral("--headless"), folder.write("bomb.off", "OFF\n1000000000 1 0\n0 0 0\n")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "ks-editor: " + folder.path("bomb.off").toStdString() +
                              ": takes more memory than it is given\n");
}

TEST(ksEditorProgram, FailsWhenItsOutputIsClosed)
{
    for (const QString &argument : {QStringLiteral("--help"), QStringLiteral("--version"), ksRoomFile()}) {
        QProcess process;
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QStringLiteral(KS_EDITOR), {QStringLiteral("--headless"), argument});
        ASSERT_TRUE(process.waitForFinished(-1));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 5) << argument.toStdString();
        EXPECT_THAT(process.readAllStandardError().toStdString(),
                    testing::MatchesRegex("ks-editor: .* cannot be written.*\n"));
    }
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
