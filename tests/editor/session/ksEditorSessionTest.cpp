// SPDX-License-Identifier: MIT
#include <editor/session/ksEditorOptions.h>
#include <editor/session/ksEditorSession.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <sstream>

namespace {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::StartsWith;

class ksEditorSessionTest : public testing::Test
{
protected:
    int run(const QString &model, const QString &script = {})
    {
        out.str({});
        errors.str({});
        ksEditorOptions options;
        options.model = model;
        options.script = script;
        return ksEditorSession(out, errors).run(options);
    }

    int runScript(const std::string &script) { return run(ksRoomFile(), folder.write("script.js", script)); }

    ksTestFolder folder;
    std::ostringstream out;
    std::ostringstream errors;
};

} // namespace

TEST_F(ksEditorSessionTest, OpensAModel)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile()), ksEditorSession::Done);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes\nOK: 0 steps\n");
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksEditorSessionTest, RunsAScript)
{
    EXPECT_EQ(runScript("print('hello'); scene.find('Table').set('travMask', 1, 'Hide'); history.undo();"),
              ksEditorSession::Done);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes\nhello\nstep 1: add \"Hide\"\nstep 2: undo \"Hide\"\n"
                         "OK: 2 steps\n");
}

TEST_F(ksEditorSessionTest, RunsTheScriptOfTheRoom)
{
    EXPECT_EQ(run(ksRoomFile(), QStringLiteral(KS_ROOM_SCRIPT)), ksEditorSession::Done) << errors.str();
    EXPECT_THAT(out.str(), ContainsRegex("\nOK: [0-9]+ steps\n$"));
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
                                ":3: Error: 'one' does not fit the field 'travMask', SFUInt32\n");
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
    EXPECT_EQ(run(ksRoomFile(), folder.path("missing.js")), ksEditorSession::ScriptError);
    EXPECT_THAT(errors.str(), EndsWith("/missing.js: No such file or directory\n"));
}

TEST_F(ksEditorSessionTest, ReportsAModelThatCannotBeRead)
{
    const QString path = folder.path("missing.gltf");
    EXPECT_EQ(run(path), ksEditorSession::ModelError);
    EXPECT_EQ(errors.str(), "ks-editor: " + path.toStdString() + ": no such file\n");
    EXPECT_EQ(out.str(), "");
}

TEST_F(ksEditorSessionTest, WarnsOfMissingTexturesAndGoesOn)
{
    folder.write("m.mtl", "newmtl wood\nmap_Kd wood.png\n");
    const QString model =
        folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl wood\nf 1 2 3\n");
    EXPECT_EQ(run(model), ksEditorSession::Done);
    EXPECT_EQ(errors.str(), "ks-editor: warning: texture wood.png: no such file\n");
    EXPECT_THAT(out.str(), StartsWith("model m.obj: "));
}
