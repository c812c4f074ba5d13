// SPDX-License-Identifier: MIT
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksEditorSession.h>
#include <editor/session/ksMemory.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <QFile>

#include <sstream>

namespace {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ksEditorSessionTest : public testing::Test
{
protected:
    int run(const QString &model, const QString &script = {}, const QString &output = {})
    {
        out.str({});
        errors.str({});
        options.model = model;
        options.script = script;
        options.output = output;
        return ksEditorSession(out, errors).run(options);
    }

    int runScript(const std::string &script) { return run(ksRoomFile(), folder.write("script.js", script)); }

    ksEditorOptions options;
    ksTestFolder folder;
    std::ostringstream out;
    std::ostringstream errors;
};

} // namespace

TEST_F(ksEditorSessionTest, OpensAModel)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile()), ksEditorSession::Done);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes; left out: 1 camera\nOK: 0 steps, 0 warnings\n");
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksEditorSessionTest, RunsAScript)
{
    EXPECT_EQ(runScript("print('hello'); scene.find('Table').set('travMask', 1, 'Hide'); history.undo();"),
              ksEditorSession::Done);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes; left out: 1 camera\nhello\n"
                         "step 1: Hide: Node 'Table' travMask 4294967295 -> 1\n"
                         "step 1 undone: Hide: Node 'Table' travMask 1 -> 4294967295\n"
                         "OK: 1 step, 0 warnings\n");
}

TEST_F(ksEditorSessionTest, RunsTheScriptOfTheRoom)
{
    EXPECT_EQ(run(ksRoomFile(), QStringLiteral(KS_ROOM_SCRIPT)), ksEditorSession::Done) << errors.str();
    EXPECT_THAT(out.str(), ContainsRegex("\nOK: [0-9]+ steps, 0 warnings\n$"));
}

/// A constraint below its own target, and a light below its own visibility reference.
TEST_F(ksEditorSessionTest, ReleasesContainersThatReferToEachOther)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(runScript("scene.addAim('Aim', scene.root, [], []);"
                        "scene.find('LampBulb').light.visibilityReference = scene.find('Lamp');"),
              ksEditorSession::Done);
    EXPECT_EQ(ksLivingContainers(), before);
}

/// They can no longer be undone.
TEST_F(ksEditorSessionTest, ReleasesContainersThatReferToEachOtherForGood)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(runScript("scene.addAim('Aim', scene.root, [], []); var lamp = scene.find('Lamp');"
                        "scene.find('LampBulb').light.visibilityReference = lamp;"
                        "var links = scene.addLinkSet('Links'); links.add([lamp, scene.find('Table')]);"
                        "links.addLights(lamp); scene.find('Links').moveTo(lamp);"
                        "var spot = scene.find('CeilingSpot'); spot.light.visibilityReference = spot;"
                        "spot.remove(); history.clear();"),
              ksEditorSession::Done);
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksEditorSessionTest, ReportsAScriptsError)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(runScript("history.beginMacro('m');\nscene.find('Table').set('travMask', 1);\n"
                        "scene.find('Table').set('travMask', 'one');\n"),
              ksEditorSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-editor: " + folder.path("script.js").toStdString() +
                                ":3: Error: 'travMask' is a whole number from 0 to 4294967295, not 'one'\n");
    EXPECT_THAT(out.str(), EndsWith("\nFAILED: 0 steps, 0 warnings\n"));
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
    EXPECT_EQ(run(ksRoomFile(), folder.path("missing.js")), ksEditorSession::ScriptError);
    EXPECT_THAT(errors.str(), EndsWith("/missing.js: No such file or directory\n"));
}

/// Only the lines of a call stack are lines of their own.
TEST_F(ksEditorSessionTest, ReportsAnErrorInOneLine)
{
    EXPECT_EQ(runScript("(function () {\n    throw new Error('two\\nlines\\t\\u200f'); })();"),
              ksEditorSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-editor: " + folder.path("script.js").toStdString() +
                                ":2: Error: two\\nlines\\t\\u200f\n    at script.js:2\n    at script.js:1\n");
}

/// Unless the script takes care of it.
TEST_F(ksEditorSessionTest, ReportsWhatAScriptCannotSave)
{
    const std::string save = "scene.save('/proc/out.gltf');";
    const std::string batch = "history.batch('All', [[scene.find('Table'), 'travMask', 1]], false, "
                              "function () { " +
                              save + " });";
    for (const std::string &script : {save, batch, "history.macro('m', function () { " + save + " });"}) {
        EXPECT_EQ(runScript("\n" + script), ksEditorSession::OutputError) << script;
        EXPECT_THAT(errors.str(), HasSubstr("script.js:2: Error: ")) << script;
        EXPECT_THAT(errors.str(), HasSubstr("/proc/out.gltf: cannot be saved: ")) << script;
        EXPECT_THAT(out.str(), ContainsRegex("\nFAILED: [0-9] steps?, 0 warnings\n$")) << script;
    }
    EXPECT_EQ(runScript("try { " + save + " } catch (error) { print('caught'); }"), ksEditorSession::Done);
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(runScript("try { " + save + " } catch (error) {} nothing();"), ksEditorSession::ScriptError);
}

TEST_F(ksEditorSessionTest, HasWarningsInJson)
{
    options.record.json = true;
    EXPECT_EQ(runScript("console.warn('careful');"), ksEditorSession::Done);
    EXPECT_THAT(out.str(), HasSubstr("\n{\"event\":\"warning\",\"text\":\"careful\"}\n"));
    EXPECT_EQ(errors.str(), "ks-editor: warning: careful\n");
    out.str({});
    options.record.detail = ksRecordStyle::Quiet;
    EXPECT_EQ(runScript("console.warn('careful');"), ksEditorSession::Done);
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("careful")));
}

TEST_F(ksEditorSessionTest, SavesWhatTheScriptLeaves)
{
    const QString script = folder.write("script.js", "scene.find('Table').set('travMask', 1, 'Hide');");
    const QString output = folder.path("out.glb");
    EXPECT_EQ(run(ksRoomFile(), script, output), ksEditorSession::Done) << errors.str();
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes; left out: 1 camera\n"
                         "step 1: Hide: Node 'Table' travMask 4294967295 -> 1\n"
                         "saved out.glb\nOK: 1 step, 0 warnings\n");
    const std::ptrdiff_t before = ksLivingContainers();
    const QString check = folder.write("check.js", "print(scene.find('Table').get('travMask'));");
    // A file may take the place of the one that it was opened from.
    EXPECT_EQ(run(output, check, output), ksEditorSession::Done) << errors.str();
    EXPECT_EQ(out.str(), "model out.glb: 58 nodes\n1\nsaved out.glb\nOK: 0 steps, 0 warnings\n");
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksEditorSessionTest, ReportsWhatCannotBeSaved)
{
    EXPECT_EQ(run(ksRoomFile(), {}, folder.path("out.obj")), ksEditorSession::OutputError);
    EXPECT_EQ(errors.str(),
              "ks-editor: " + folder.path("out.obj").toStdString() + ": scenes are saved as .gltf or .glb\n");
    // It is known before the work begins.
    EXPECT_EQ(out.str(), "FAILED: no scene, 0 warnings\n");
    EXPECT_EQ(run(ksRoomFile(), {}, QStringLiteral("/proc/out.gltf")), ksEditorSession::OutputError);
    EXPECT_THAT(errors.str(), StartsWith("ks-editor: /proc/out.gltf: cannot be saved: "));
}

TEST_F(ksEditorSessionTest, SavesNothingAfterAnError)
{
    const QString script = folder.write("script.js", "nothing();");
    EXPECT_EQ(run(ksRoomFile(), script, folder.path("out.glb")), ksEditorSession::ScriptError);
    EXPECT_FALSE(QFile::exists(folder.path("out.glb")));
}

TEST_F(ksEditorSessionTest, ReportsAModelThatCannotBeRead)
{
    const QString path = folder.path("missing.gltf");
    EXPECT_EQ(run(path), ksEditorSession::ModelError);
    EXPECT_EQ(errors.str(), "ks-editor: " + path.toStdString() + ": no such file\n");
    EXPECT_EQ(out.str(), "FAILED: no scene, 0 warnings\n");
}

TEST_F(ksEditorSessionTest, WarnsOfMissingTexturesAndGoesOn)
{
    folder.write("m.mtl", "newmtl wood\nmap_Kd wood.png\n");
    const QString model =
        folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl wood\nf 1 2 3\n");
    EXPECT_EQ(run(model), ksEditorSession::Done);
    EXPECT_EQ(errors.str(), "ks-editor: warning: texture wood.png: no such file\n");
    EXPECT_THAT(out.str(), StartsWith("model m.obj: "));
    EXPECT_THAT(out.str(), EndsWith("\nOK: 0 steps, 1 warning\n"));
}

TEST_F(ksEditorSessionTest, GivesArgumentsToTheScript)
{
    options.scriptArguments = QStringList{QStringLiteral("--fast"), QStringLiteral("two words")};
    EXPECT_EQ(runScript("print(args.length, Array.isArray(args), args.join('|'));"), ksEditorSession::Done);
    EXPECT_THAT(out.str(), HasSubstr("\n2 true --fast|two words\n"));
    options.scriptArguments.clear();
    EXPECT_EQ(runScript("print(args.length);"), ksEditorSession::Done);
    EXPECT_THAT(out.str(), HasSubstr("\n0\n"));
}

TEST_F(ksEditorSessionTest, WritesTheRecordAsItIsTold)
{
    const std::string script = "print('hello'); scene.find('Table').set('travMask', 1, 'Hide');";
    options.record.detail = ksRecordStyle::Quiet;
    EXPECT_EQ(runScript(script), ksEditorSession::Done);
    EXPECT_EQ(out.str(), "hello\nOK: 1 step, 0 warnings\n");
    options.record.json = true;
    EXPECT_EQ(runScript(script), ksEditorSession::Done);
    EXPECT_EQ(out.str(), R"({"event":"print","text":"hello"})"
                         "\n"
                         R"({"event":"verdict","steps":1,"verdict":"OK","warnings":0})"
                         "\n");
    options.record.detail = ksRecordStyle::Short;
    EXPECT_EQ(runScript("\nnothing();"), ksEditorSession::ScriptError);
    EXPECT_EQ(out.str(), R"({"event":"model","file":"room.gltf","leftOut":"1 camera","nodes":58})"
                         "\n"
                         R"({"error":")" +
                             folder.path("script.js").toStdString() +
                             R"(:2: ReferenceError: nothing is not defined","event":"verdict",)"
                             R"("steps":0,"verdict":"FAILED","warnings":0})"
                             "\n");
}

/// It is neither caught nor answered by more of the same.
TEST_F(ksEditorSessionTest, EndsAScriptThatTakesTooLong)
{
    const std::ptrdiff_t before = ksLivingContainers();
    options.timeLimit = 0.05;
    EXPECT_EQ(runScript("scene.find('Table').set('travMask', 1);\n"
                        "history.beginMacro('Half');\n"
                        "scene.find('Table').set('travMask', 2);\n"
                        "while (true) { try { while (true) {} } catch (error) {} finally {} }"),
              ksEditorSession::ScriptError);
    EXPECT_EQ(errors.str(),
              "ks-editor: " + folder.path("script.js").toStdString() + ": ended after 0.05 seconds\n");
    EXPECT_THAT(out.str(), HasSubstr("\nFAILED: "));
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksEditorSessionTest, EndsAScriptThatTakesTooMuchMemory)
{
    options.memoryLimit = static_cast<double>(ksMemory::used()) / (1024 * 1024) + 200;
    EXPECT_EQ(runScript("var all = []; while (true) all.push(new Array(1000).fill(all.length));"),
              ksEditorSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-editor: " + folder.path("script.js").toStdString() + ": out of memory\n");
}

TEST_F(ksEditorSessionTest, FailsWhenTheRecordCannotBeWritten)
{
    for (const char *script : {"scene.find('Table').set('travMask', 1);", "while (true) print('more');",
                               "try { scene.find('Table').set('travMask', 1); } catch (error) {}", ""}) {
        errors.str({});
        options.model = ksRoomFile();
        options.script = folder.write("script.js", script);
        std::ofstream full("/dev/full");
        ASSERT_TRUE(full) << "there is no /dev/full";
        options.record.detail = ksRecordStyle::Quiet;
        if (std::string(script).find("set") != std::string::npos)
            options.record.detail = ksRecordStyle::Short;
        EXPECT_EQ(ksEditorSession(full, errors).run(options), ksEditorSession::OutputError) << script;
        EXPECT_EQ(errors.str(), "ks-editor: the record cannot be written: No space left on device\n");
    }
}
