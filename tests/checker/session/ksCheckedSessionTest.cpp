// SPDX-License-Identifier: MIT
#include <checker/session/ksCheckedSession.h>
#include <checker/tour/ksCommandClasses.h>
#include <editor/session/ksEditorOptions.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <sstream>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ksCheckedSessionTest : public testing::Test
{
protected:
    int run(const QString &model, const std::string &script = {})
    {
        out.str({});
        errors.str({});
        ksEditorOptions options;
        options.model = model;
        if (!script.empty())
            options.script = folder.write("script.js", script);
        return ksCheckedSession(out, errors).run(options);
    }

    ksTestFolder folder;
    std::ostringstream out;
    std::ostringstream errors;
};

} // namespace

TEST_F(ksCheckedSessionTest, ToursTheModel)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile()), 0);
    EXPECT_EQ(errors.str(), "");
    EXPECT_THAT(out.str(), StartsWith("model room.gltf: 58 nodes\nstep 1: add "));
    const std::string all = std::to_string(ksCommandClasses::all().size());
    EXPECT_THAT(out.str(),
                testing::ContainsRegex(
                    "\nOK: [0-9]+ steps, 270 containers, 0 differences, [0-9]+ within tolerance, " + all +
                    " of " + all + " command classes\n$"));
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
}

TEST_F(ksCheckedSessionTest, RunsAScriptInstead)
{
    EXPECT_EQ(run(ksRoomFile(), "print('hello');"), 0);
    EXPECT_EQ(out.str(), "model room.gltf: 58 nodes\nhello\nstep 1: check\n"
                         "  check    index 0 of 0, 270 containers: no difference\n"
                         "OK: 1 steps, 270 containers, 0 differences, 0 within tolerance\n");
}

/// A constraint below its own target, and a light below its own visibility reference.
TEST_F(ksCheckedSessionTest, ReleasesContainersThatReferToEachOther)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile(), "scene.addAim('Aim', scene.root, [], []);"
                                "scene.find('LampBulb').light.visibilityReference = scene.find('Lamp');"),
              0);
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksCheckedSessionTest, RunsTheScriptOfTheRoom)
{
    ksEditorOptions options;
    options.model = ksRoomFile();
    options.script = QStringLiteral(KS_ROOM_SCRIPT);
    EXPECT_EQ(ksCheckedSession(out, errors).run(options), 0) << errors.str();
    EXPECT_THAT(out.str(), HasSubstr("\nOK: "));
}

TEST_F(ksCheckedSessionTest, ReportsAScriptsError)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_EQ(run(ksRoomFile(), "var table = scene.find('Table').attachment('ksNodeSettings');\n"
                                "table.set('layer', 3);\ntable.set('layer', 'three');\n"),
              ksCheckedSession::ScriptError);
    EXPECT_EQ(errors.str(), "ks-checker: " + folder.path("script.js").toStdString() +
                                ":3: Error: 'three' does not fit the field 'layer', SFUInt8\n");
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
}

/// A script that catches the error of a failed check does not make it undone.
TEST_F(ksCheckedSessionTest, FailsWhenACheckFailed)
{
    const osg::FieldContainerPtr victim = osg::ksNodeSettings::getClassType().getPrototype();
    ASSERT_NE(victim, osg::NullFC);
    // The prototype is a container like any other: writing it without an end of the edit leaves aspect 1
    // stale.
    auto settings = osg::ksNodeSettingsPtr::dcast(victim);
    settings->setLayer(1);
    EXPECT_EQ(run(ksRoomFile(), "print('nothing');"), ksCheckedSession::DifferenceFound);
    settings->setLayer(0);
    EXPECT_THAT(out.str(), HasSubstr("  STALE    ksNodeSettings "));
    EXPECT_THAT(out.str(),
                testing::ContainsRegex(
                    "\nFAILED: 1 steps, 270 containers, [1-9][0-9]* differences, 0 within tolerance\n$"));
}

TEST_F(ksCheckedSessionTest, ReportsAModelThatCannotBeRead)
{
    const QString path = folder.path("missing.gltf");
    EXPECT_EQ(run(path), ksCheckedSession::ModelError);
    EXPECT_EQ(errors.str(), "ks-checker: " + path.toStdString() + ": no such file\n");
    EXPECT_EQ(out.str(), "");
}

TEST_F(ksCheckedSessionTest, WarnsOfMissingTexturesAndGoesOn)
{
    folder.write("m.mtl", "newmtl wood\nmap_Kd wood.png\n");
    const QString model =
        folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl wood\nf 1 2 3\n");
    EXPECT_EQ(run(model), 0);
    EXPECT_EQ(errors.str(), "ks-checker: warning: texture wood.png: no such file\n");
    EXPECT_THAT(out.str(), HasSubstr("\nOK: "));
}
