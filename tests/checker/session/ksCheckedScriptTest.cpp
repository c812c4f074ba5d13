// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/session/ksCheckedScript.h>
#include <checker/tour/ksCommandClasses.h>
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
    {"TurnsAndAngles",
     "var vase = scene.find('Vase'); vase.turn([0.1, -0.6, 0.3, -0.8]); vase.rotate([10, 20, 30]);"
     "history.undo(); history.redo(); vase.rotationOrder = 'ZXY'; vase.turn([0, 0.70710678, 0, 0.70710678]);"
     "vase.apply({ eulerRotation: [80, 5, 7], translation: [1e6, 0, 0] }); vase.rotationOrder = 'YXZ';"},
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
    {"SharedVisibilityReferences",
     "var lamp = scene.find('LampBulb').light, spot = scene.find('CeilingSpot').light;"
     "var shade = scene.find('LampShade'); lamp.visibilityReference = shade; spot.visibilityReference = "
     "shade;"
     "lamp.visibilityReference = null; if (shade.get('externalFlags') !== 16) throw 'the mark has gone';"
     "history.undo(); history.undo(); if (shade.get('externalFlags') !== 16) throw 'the mark has gone';"
     "history.redo(); spot.visibilityReference = scene.find('Table'); lamp.visibilityReference = null;"
     "if (shade.get('externalFlags') !== 0) throw 'the mark is there';"},
    {"Trees",
     "var table = scene.find('Table'), chair = scene.find('Chair');"
     "var copy = table.copy(scene.root, 'Second table'); copy.translate([3, 0, 0]); copy.material = null;"
     "var shelf = scene.root.add('Shelf'); copy.moveTo(shelf); chair.moveTo(table, 0);"
     "chair.moveTo(table, 1); chair.remove(); shelf.remove(); history.undo(); shelf.name = 'Board';"
     "scene.find('Lamp').variants.add('Corner'); scene.find('Lamp').copy(shelf);"},
    {"ClearingRemovedNodes",
     "scene.find('LegFrontLeft').children[0].remove(); scene.find('Chair').remove(); history.clear();"
     "scene.find('Table').remove();"},
    {"Texts", "var own = scene.find('Table').attachment('ksNodeSettings'); own.set('comment', 'new');"
              "own.drag('comment', ['o', 'oi', 'oil']); scene.find('Table').tags.add('wood');"
              "var tags = scene.find('Table').attachment('TagAttachment');"
              "tags.set('systemTags', ['a', 'b']); tags.drag('systemTags', [['c'], ['c', 'd'], []]);"
              "scene.find('Rug').material.name = 'Wool'; scene.find('Table').name = 'Desk';"},
    {"MeshMaterials", "var rug = scene.find('Rug'); rug.material = scene.find('Floor').material;"
                      "rug.material = null; scene.find('Clock').material.set('baseColor', [1, 0, 0.5]);"},
    {"MixedBatches", "var vase = scene.find('Vase'), lamp = scene.find('LampBulb').light;"
                     "function move(x, merging) { history.batch('Mix', [[vase, 'translation', [x, 0, 0]],"
                     "    [lamp, 'intensity', x], [vase.attachment('ksNodeSettings'), 'comment', 'x' + x],"
                     "    [scene.find('Rug').material.components[0], 'color', [x, x, x]]], merging); }"
                     "move(1); move(2, true); if (history.count !== 1) throw 'not merged';"},
    {"BatchesOfEverything",
     "var vase = scene.find('Vase'), clock = scene.find('Clock').material, rug = scene.find('Rug');"
     "history.batch('All', [[vase, 'rotation', [0, 0.6, 0, 0.8]], [vase, 'rotationOrder', 'ZYX'],"
     "    [scene.find('Flower'), 'translation', [1, 2, 3], { world: true }],"
     "    [clock, 'environment', rug.material], [rug.material.components[0], 'image', "
     "scene.find('Picture').image],"
     "    [scene.find('Floor'), 'material', rug.material]]);"},
    {"BatchesOfAFunction",
     "var vase = scene.find('Vase'), lamp = scene.find('Lamp'), bulb = scene.find('LampBulb').light;"
     "history.batch('All', function () { vase.name = 'Jug'; vase.tags.add('clay'); vase.tags.add('blue');"
     "    lamp.variants.add('One'); lamp.variants.add('Two', 0); lamp.variants.move(1, 0);"
     "    lamp.variants.remove(0); bulb.visibilityReference = vase; bulb.visibilityReference = lamp;"
     "    var shelf = scene.root.add('Shelf'); vase.moveTo(shelf); shelf.add('Below').copy(shelf);"
     "    vase.turn([0, 0.6, 0, 0.8]); vase.rotate([10, 20, 30]); vase.apply({ scale: [2, 2, 2] });"
     "    scene.find('Flower').translate([1, 2, 3], { world: true });"
     "    var links = scene.addLinkSet('Links'); links.add([shelf, lamp]); links.remove(lamp);"
     "    scene.addAim('Aim', lamp, [vase, shelf], []).remove([vase, shelf]);"
     "    vase.attachment('ksNodeSettings').switchFlag('locked', true, function () {});"
     "    scene.find('Rug').material.setAllComponents('weight', 0.5); scene.find('Chair').remove(); });"
     "if (history.count !== 1) throw 'not one';"
     "try { history.batch('Half', function () { vase.tags.remove('clay'); none(); }); } catch (error) {}"},
    {"TakingBack",
     "var vase = scene.find('Vase'); vase.scale([2, 2, 2]);"
     "try { history.macro('m', function () { vase.turn([0, 0.6, 0, 0.8]); vase.rotate([1, 2, 3]);"
     "    vase.remove(); vase.scale('large'); }); } catch (error) {}"
     "history.macro('empty', function () {}); vase.scale([3, 3, 3]);"},
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

/// What a failed script had half done is taken back.
TEST_F(ksCheckedScriptErrorTest, LeavesNothingOpen)
{
    const std::string own = "var own = scene.find('Table').attachment('ksNodeSettings');\n";
    EXPECT_EQ(errorOf(own + "own.drag('opacity', [0.5, 0.25, 'three']);"),
              ":2: Error: 'opacity' is a number, not 'three'");
    EXPECT_EQ(errorOf(own + "history.beginMacro('m'); own.drag('opacity', [1, 0.25, 'three']);"),
              ":2: Error: 'opacity' is a number, not 'three'");
    EXPECT_EQ(errorOf(own + "history.beginMacro('m'); own.set('layer', 9);"),
              ":2: Error: the macro 'm' is not ended");
    EXPECT_EQ(errorOf("\nhistory.endMacro();"), ":2: Error: there is no open macro");
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(errorOf(own + "own.drag('opacity', [0.75, 0.5]); history.undo();" + BackAndForth), "");
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

namespace {

/// Makes a command of each class of the library.
constexpr const char *EveryClass = R"js(
var own = scene.find('Table').attachment('ksNodeSettings');
var numbers = { layer: 1, lodBias: 1, renderOrder: 1, stencilReference: 1, pickId: 1, sortKey: 1, userFlags: '1',
                revision: '1', opacity: 0.5, timeOffset: 1, locked: true, comment: 'new' };
Object.keys(numbers).forEach(function (name) { own.set(name, numbers[name]); });
own.switchFlag('locked', false, function () {});
history.batch('Plain', [[own, 'layer', 7]]);
history.batch('Calling', [[own, 'layer', 8]], false, function () {});
var vase = scene.find('Vase');
['translation', 'eulerRotation', 'scale', 'shear', 'scalePivot', 'rotatePivot', 'scalePivotTranslation',
 'rotatePivotTranslation', 'rotationOrientation', 'rotationDirection'].forEach(function (name) {
    vase.setTransform(name, [3, 2, 1]);
});
vase.turn([0, 0.6, 0, 0.8]);
vase.rotationOrder = 'ZYX';
vase.apply({ scale: [5, 5, 5] });
var v = vase.variants;
v.add('One');
v.add('Two');
v.move(0, 1);
v.rename(0, 'Three');
v.options(0, 1);
v.remove(0);
var light = scene.find('CeilingSpot').light;
light.diffuse = [0.5, 0, 0];
light.glossy = [0.5, 0, 0];
light.intensity = 5;
light.penumbraAngle = 5;
light.coneAngle = 50;
light.attenuation = 1;
light.visibilityReference = vase;
scene.addLinkSet('Links').add(vase);
var cloth = scene.find('Rug').material;
cloth.setComponent(0, 'weight', 0.5);
cloth.setAllComponents('weight', 0.25);
cloth.setComponentQuietly(0, 'weight', 0.75);
cloth.setImage(0, scene.find('Picture').image);
scene.find('Clock').material.environment = cloth;
vase.tags.add('glass');
vase.tags.add('old');
vase.tags.remove('glass');
vase.attachment('TagAttachment').set('systemTags', ['glass']);
scene.recordTag('lost', true);
scene.recordTag('lost', false, true);
scene.addAim('Aim', vase, [scene.find('Table')], []).remove(vase);
)js";

} // namespace

TEST_F(ksCheckedScriptErrorTest, MakesCommandsOfEveryClass)
{
    EXPECT_EQ(errorOf(std::string(EveryClass) + BackAndForth), "");
    ksCommandClasses::verifyIn(history);
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    EXPECT_EQ(ksCommandClasses::countIn(history), 52);
}

namespace {

class ksRandomScriptTest : public ksCheckedScriptTest
{};

} // namespace

TEST_P(ksRandomScriptTest, FindsNothing)
{
    std::ostringstream edits;
    edits << std::ifstream(KS_RANDOM_SCRIPT).rdbuf();
    EXPECT_EQ(errorOf(GetParam().script + edits.str()), "");
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    EXPECT_GT(transcript.stepCount(), 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ksRandomScriptTest,
                         testing::Values(ScriptCase{"One", "var seed = 1;"},
                                         ScriptCase{"Two", "var seed = 2;"},
                                         ScriptCase{"Three", "var seed = 3;"}),
                         [](const auto &info) { return std::string(info.param.name); });
