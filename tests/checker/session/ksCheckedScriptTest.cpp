// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/session/ksCheckedScript.h>
#include <editor/history/ksRecord.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/session/ksOpenScene.h>
#include <tests/editor/script/ksScriptFixture.h>

#include <ostream>
#include <sstream>

namespace {

using testing::HasSubstr;

struct ScriptCase
{
    const char *name;
    const char *script;
};

void PrintTo(const ScriptCase &scriptCase, std::ostream *out)
{
    *out << scriptCase.name;
}

/// The room, which scripts run on.
class ksCheckedScriptTest : public testing::TestWithParam<ScriptCase>
{
protected:
    std::string errorOf(const std::string &script) { return ksScriptErrorOf(engine, folder, script); }

    ksTestFolder folder;
    std::ostringstream out;
    osg::NodeRefPtr room{ksSceneImporter([](const QString &) {}).load(ksRoomFile())};
    const ksOpenScene scene{room.get()};
    ksRecord record{out, {ksRecordStyle::Verbose}};
    ksTranscript transcript{record};
    ksUndoStack stack;
    ksCheckedHistory history{room, transcript, &stack};
    ksCheckedScript engine{history, out};
};

constexpr const char *BackAndForth = "\nwhile (history.index > 0) history.undo();"
                                     "while (history.index < history.count) history.redo();"
                                     "while (history.index > 0) history.undo();"
                                     "check();";

const ScriptCase Cases[] = {
    {"Fields", "var own = scene.find('Table').attachment('ksNodeSettings');"
               "own.set('layer', 9); own.set('locked', true); own.drag('opacity', [0.5, 0.25, 0.125]);"},
    {"DragsThatDoNotMerge", "var own = scene.find('Table').attachment('ksNodeSettings');"
                            "own.set('layer', 1); history.undo(); own.drag('layer', []);"
                            "history.redo(); own.drag('locked', [true, false, true]);"},
    {"Batches", "var all = scene.nodes().map(function (node) { return node.attachment('ksNodeSettings'); });"
                "[0.5, 0.25].forEach(function (opacity, round) {"
                "    history.batch('Fade', all.map(function (own) { return [own, 'opacity', opacity]; }),"
                "                  round > 0); });"},
    {"Macros", "var own = scene.find('Table').attachment('ksNodeSettings');"
               "history.macro('Outer', function () {"
               "    own.set('layer', 7); own.drag('opacity', [0.5, 0.25]);"
               "    history.macro('Inner', function () { own.drag('locked', [true, false]); }); });"},
    {"Marks", "var own = scene.find('Table').attachment('ksNodeSettings');"
              "own.set('layer', 1); history.mark(); own.set('layer', 2); history.reset(); history.clear();"
              "own.set('layer', 3); history.undo();"},
    {"Transforms", "var vase = scene.find('Vase'); vase.translate([1, 2, 3]); vase.rotate([0, 90, 0]);"
                   "vase.scale([1, 2, 4]); vase.shear([0.5, 0, 0]);"
                   "vase.setTransform('rotatePivot', [7, 8, 9]); vase.rotationOrder = 'ZYX';"},
    {"WorldSpace", "var flower = scene.find('Flower'); flower.translate([1, 1.5, -1], { world: true });"
                   "flower.drag('scalePivot', [[0.1, 0, 0], [0.3, 0.7, 0.9]], { world: true });"
                   "flower.setTransform('rotatePivot', [0.1, 0.2, 0.3], { world: true });"
                   "history.undo(); history.redo();"},
    {"WorldSpaceInMacros",
     "var flower = scene.find('Flower');"
     "history.macro('Move', function () {"
     "    flower.drag('translation', [[1, 0, 0], [0.3, 0.7, 0.9]], { world: true }); });"},
    {"Turns", "var vase = scene.find('Vase'); vase.turn([0, 0.6, 0, 0.8]); vase.turn([0, 0, 0.6, 0.8]);"},
    {"Transformations", "var book = scene.find('Book');"
                        "book.apply({ translation: [1, 2, 3], eulerRotation: [0, 90, 0],"
                        "             eulerRotationOrder: 'YXZ', rotationDirectionOn: true });"
                        "book.setTransform('rotationDirection', [1, 1, 1]); history.undo();"},
    {"Variants", "var lamp = scene.find('Lamp'), v = lamp.variants;"
                 "v.add('One'); v.add('Three'); v.add('Two', 1); v.rename(0, 'First'); v.options(2, 3);"
                 "v.move(0, 2); v.move([2, 0], 0); lamp.scale([3, 3, 3], { index: 1 });"
                 "lamp.translate([1, 2, 3], { index: 1, world: true });"
                 "lamp.apply({ translation: [4, 5, 6] }, { index: 1 });"
                 "v.remove(1); v.remove(1); v.remove(0);"},
    {"Lights",
     "var light = scene.find('LampBulb').light; light.diffuse = [0.5, 0.25, 0];"
     "light.drag('intensity', [2, 3, 4]); light.coneAngle = 30; light.attenuation = 2;"
     "light.visibilityReference = scene.find('Table'); light.visibilityReference = scene.find('Rug');"
     "light.visibilityReference = null;"},
    {"Links", "var links = scene.addLinkSet('Links'), lamp = scene.find('LampBulb light');"
              "links.add([scene.find('Table'), lamp]); links.addLights(lamp); links.remove(lamp);"
              "links.removeLights([lamp]); history.undo();"},
    {"Materials", "var cloth = scene.find('Rug').material;"
                  "cloth.setComponent(0, 'color', [0, 0.5, 1]); cloth.setSettings('mappingRotation', 45);"
                  "cloth.dragComponent(0, 'weight', [0.5, 0.25]); cloth.setAllComponents('enabled', false);"},
    {"Images", "var floor = scene.find('Floor').material; floor.setImage(0, scene.find('Picture').image);"
               "floor.setImage(0, null); scene.find('Clock').material.environment = floor;"},
    {"Tags", "var tags = scene.find('Table').tags; tags.add('wood'); tags.add('old'); tags.addLayer('roof');"
             "tags.remove('wood'); tags.removeLayer('roof');"},
    {"Constraints",
     "var vase = scene.find('Vase'), flower = scene.find('Flower'), spot = scene.find('CeilingSpot');"
     "var aim = scene.addAim('Aim', spot, [vase, flower, spot], flower); aim.remove(vase);"
     "history.undo(); aim.remove([vase, flower]); history.undo(); history.redo(); aim.remove(spot);"
     "history.undo();"}};

} // namespace

/// All the way back, forth and back again.
TEST_P(ksCheckedScriptTest, FindsNothing)
{
    EXPECT_EQ(errorOf(std::string(GetParam().script) + BackAndForth), "");
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    EXPECT_GT(stack.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(Edits, ksCheckedScriptTest, testing::ValuesIn(Cases),
                         [](const auto &info) { return std::string(info.param.name); });

using ksCheckedScriptErrorTest = ksCheckedScriptTest;

TEST_F(ksCheckedScriptErrorTest, ChecksOnDemand)
{
    EXPECT_EQ(errorOf("check();"), "");
    EXPECT_THAT(out.str(), HasSubstr("no difference"));
    const osg::ksNodeSettingsPtr settings = ksSettingsOf(room);
    settings->setLayer(1);
    EXPECT_EQ(errorOf("\ncheck();"), ":2: Error: the scene differs from the history");
    settings->setLayer(0);
}

/// What a failed script had half done is undone like any other step.
TEST_F(ksCheckedScriptErrorTest, LeavesNothingOpen)
{
    const std::string own = "var own = scene.find('Table').attachment('ksNodeSettings');\n";
    EXPECT_EQ(errorOf(own + "own.drag('opacity', [0.5, 0.25, 'three']);"),
              ":2: Error: 'three' does not fit the field 'opacity', SFReal32");
    EXPECT_EQ(errorOf(own + "history.beginMacro('m'); own.drag('opacity', [1, 0.25, 'three']);"),
              ":2: Error: 'three' does not fit the field 'opacity', SFReal32");
    EXPECT_EQ(errorOf(own + "history.beginMacro('m'); own.set('layer', 9);"),
              ":2: Error: the macro 'm' is not ended");
    EXPECT_EQ(errorOf("\nhistory.endMacro();"), ":2: Error: there is no open macro");
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(errorOf(own + "own.drag('opacity', [0.75, 0.5]); history.undo();" + BackAndForth), "");
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}
