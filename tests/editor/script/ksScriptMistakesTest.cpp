// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <editor/script/ksScriptDescription.h>
#include <editor/script/ksScriptRegistry.h>
#include <tests/editor/ksTransformScene.h>
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>

#include <map>
#include <set>

namespace {

/// The transforms' scene, with a light "Lamp" and meshes "Metal" and "Other", the latter with a colour
/// component.
class ksMistakesScene : public ksTransformScene
{
protected:
    ksMistakesScene()
    {
        const osg::UberMaterialPtr other = osg::UberMaterial::create();
        const osg::ksMeshPtr otherMesh = osg::ksMesh::create();
        CPEditAll(mesh);
        CPEditAll(other);
        CPEditAll(otherMesh);
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        mesh->setMaterial(metal);
        other->addColorComponent(osg::ColorComponent::create());
        otherMesh->setMaterial(other);
        root->addChild(ksContainers::createNode("Lamp", light));
        root->addChild(ksContainers::createNode("Metal", mesh));
        root->addChild(ksContainers::createNode("Other", otherMesh));
    }

    const osg::UberLightPtr light = osg::UberLight::create();
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    const osg::UBRDFMaterialPtr metal = osg::UBRDFMaterial::create();
};

class ksScriptMistakesTest : public ksScriptFixture<ksMistakesScene>
{
protected:
    /// Expects that \a script ends by \a error and leaves no step.
    void expectMistake(const std::string &script, const std::string &error)
    {
        const int count = stack.count();
        EXPECT_EQ(errorOf("var child = scene.find('Child'), light = scene.find('Lamp').light;"
                          "var own = child.attachment('ksNodeSettings'), v = child.variants;\n" +
                          script),
                  ":2: " + error)
            << script;
        EXPECT_EQ(stack.count(), count) << script;
    }

    const std::string label = ksContainers::label(child).toStdString();
};

} // namespace

TEST_F(ksScriptMistakesTest, NamesUnknownProperties)
{
    expectMistake("child.colour = 1;", "TypeError: " + label + " has no property 'colour'");
    expectMistake("child.nmae;", "TypeError: " + label + " has no property 'nmae'; did you mean 'name'?");
    expectMistake("child.Translate([1, 2, 3]);",
                  "TypeError: " + label + " has no property 'Translate'; did you mean 'translate'?");
    expectMistake("scene.findall('x');",
                  "TypeError: scene has no property 'findall'; did you mean 'findAll'?");
    expectMistake("child.id = 5;", "TypeError: Cannot assign to read-only property \"id\"");
    EXPECT_THAT(errorOf("delete scene.find('Child').name;"),
                testing::HasSubstr(label + " cannot be deleted"));
    expectMistake("Object.defineProperty(child, 'name', { value: 1 });",
                  "TypeError: the properties of " + label + " cannot be redefined");
    EXPECT_EQ(run("var child = scene.find('Child');"
                  "print('light' in child, 'colour' in child, child, JSON.stringify([child]));"),
              "true false " + label + " [\"" + label + "\"]\n");
}

TEST_F(ksScriptMistakesTest, NamesWrongArguments)
{
    expectMistake("scene.find();", "TypeError: find(name) takes 1 argument, not 0");
    expectMistake("scene.find('Child', 1);", "TypeError: find(name) takes 1 argument, not 2");
    expectMistake("child.translate();",
                  "TypeError: translate(value, [options]) takes 1 to 2 arguments, not 0");
    expectMistake("scene.find(5);", "TypeError: find: 'name' is a text, not 5");
    expectMistake("v.remove('garbage');", "TypeError: remove: 'index' is a whole number, not 'garbage'");
    expectMistake("v.remove(0.5);", "TypeError: remove: 'index' is a whole number, not 0.5");
    expectMistake("v.remove([0]);", "TypeError: remove: 'index' is a whole number, not an array");
    expectMistake("v.rename(0, child);", "TypeError: rename: 'name' is a text, not " + label);
    expectMistake("child.rotationOrder = 3;", "TypeError: " + label + ": 'rotationOrder' is a text, not 3");
    expectMistake("history.macro('m', 5);", "TypeError: macro: 'body' is a function, not 5");
    expectMistake("history.macro(5, function () {});", "TypeError: macro: 'text' is a text, not 5");
    expectMistake("own.set('layer', 1, 5);", "TypeError: set: 'text' is a text, not 5");
    expectMistake("history.batch('b', [], 1);", "TypeError: batch: 'merging' is true or false, not 1");
    expectMistake("child.translate([0, 0, 1], { index: '-1' });",
                  "Error: 'index' is a whole number from -2147483648 to 2147483647, not '-1'");
    expectMistake("own.set('layer', '7');", "Error: 'layer' is a whole number from 0 to 255, not '7'");
    expectMistake("child.apply({ inheritType: '1' });",
                  "Error: 'inheritType' is a whole number from -2147483648 to 2147483647, not '1'");
    // What is left out by its name is left out.
    EXPECT_EQ(errorOf("scene.root.attachment('ksNodeSettings').set('layer', 1, undefined);"), "");
}

TEST_F(ksScriptMistakesTest, RefusesAnIndexThatIsNone)
{
    run("scene.find('Child').variants.add('One');");
    expectMistake("v.remove('garbage');", "TypeError: remove: 'index' is a whole number, not 'garbage'");
    expectMistake("v.move('garbage', 0);", "Error: 'from' is an index or an array of indexes, not 'garbage'");
    expectMistake("v.move([0.5], 0);", "Error: 'from' is an index or an array of indexes, not 0.5");
    expectMistake("v.remove(NaN);", "TypeError: remove: 'index' is a whole number, not NaN");
    EXPECT_EQ(run("print(scene.find('Child').variants.names);"), "One\n");
}

TEST_F(ksScriptMistakesTest, RefusesValuesThatMakeNoSense)
{
    for (const char *number : {"NaN", "1 / 0", "-1 / 0"})
        for (const std::string edit :
             {"own.set('opacity', ", "own.set('timeOffset', ", "light.coneAngle = ("})
            EXPECT_NE(errorOf("var own = scene.root.attachment('ksNodeSettings'),"
                              "light = scene.find('Lamp').light;" +
                              edit + number + ");"),
                      "");
    expectMistake("own.set('timeOffset', NaN);", "Error: 'timeOffset' takes finite numbers, not NaN");
    expectMistake("own.set('opacity', 2);", "Error: 'opacity' takes numbers from 0 to 1, not 2");
    expectMistake("light.diffuse = [0, -1, 0];", "Error: 'diffuse' takes numbers of at least 0, not -1");
    expectMistake("light.coneAngle = 400;", "Error: 'coneAngle' takes numbers from 0 to 360, not 400");
    expectMistake("light.set('ConeAngle', 400);", "Error: 'coneAngle' takes numbers from 0 to 360, not 400");
    expectMistake("light.drag('coneAngle', [20, 400]);",
                  "Error: 'coneAngle' takes numbers from 0 to 360, not 400");
    expectMistake("scene.find('Metal').material.set('roughness', -0.5);",
                  "Error: 'roughness' takes numbers from 0 to 1, not -0.5");
    expectMistake("light.intensity = -1;", "Error: 'intensity' takes numbers of at least 0, not -1");
    expectMistake("child.apply({ rotationDirectionMode: 3 });",
                  "Error: 'rotationDirectionMode' takes numbers from 0 to 2, not 3");
    expectMistake("child.core.set('rotationDirectionMode', -1);",
                  "Error: 'rotationDirectionMode' takes numbers from 0 to 2, not -1");
    expectMistake("child.turn([0, 0, 0, 1 / 0]);",
                  "Error: 'quaternion' is an array [x, y, z, w] of numbers, not an array with Infinity");
    expectMistake("scene.find('Child').turn([0, 0, 0, 0]);",
                  "Error: a quaternion of length 0 is no rotation");
    expectMistake("child.core.set('eulerRotation', [1, 2, 3]);",
                  "Error: the field 'eulerRotation' of " +
                      ksContainers::label(child->getCore()).toStdString() + " is edited by its node");
}

TEST_F(ksScriptMistakesTest, NamesNumbersThatAreTooLarge)
{
    expectMistake("light.diffuse = [1, 1, 1e39];",
                  "Error: 'diffuse' is a colour [r, g, b], not an array with 1e+39, which is too large");
    expectMistake("own.set('opacity', 1e39);", "Error: 'opacity' is a number, not 1e+39, which is too large");
}

TEST_F(ksScriptMistakesTest, RefusesNamesThatEndEarly)
{
    for (const std::string call :
         {"add('a\\0b')", "copy(scene.root, 'a\\0b')", "variants.add('a\\0b')", "tags.add('a\\0b')"})
        EXPECT_THAT(errorOf("scene.find('Child')." + call + ";"), testing::HasSubstr("has a NUL character"));
    expectMistake("scene.addLinkSet('a\\0b');", "TypeError: addLinkSet: 'name' has a NUL character");
    expectMistake("child.name = 'a\\0b';", "TypeError: " + label + ": 'name' has a NUL character");
    expectMistake("child.set('name', 'a\\0b');", "Error: 'name' has a NUL character");
    expectMistake("child.drag('name', ['a\\0b']);", "Error: 'name' has a NUL character");
    expectMistake("history.batch('b', [[child, 'name', 'a\\0b']]);", "Error: 'name' has a NUL character");
    EXPECT_EQ(stack.count(), 0);
}

/// Nothing is left of the name.
TEST_F(ksScriptMistakesTest, RefusesANameThatCannotBeAttached)
{
    const std::string metalLabel = ksContainers::label(metal).toStdString();
    run("print(scene.find('Metal').material.name);");
    const std::ptrdiff_t before = ksLivingContainers();
    expectMistake("scene.find('Metal').material.name = 'x';",
                  "Error: " + metalLabel + " cannot be given a name");
    EXPECT_EQ(ksLivingContainers(), before);
}

/// A drag is one step, whatever its value.
TEST_F(ksScriptMistakesTest, DragsEveryValueOrRefusesIt)
{
    std::map<std::string, std::string> drags = {
        {"Container.name", "child: 'A', 'B', 'C'"},
        {"Container.material", "scene.find('Metal'): null, other, null"},
        {"Node.rotationOrder", "child: 'ZYX', 'XZY', 'YXZ'"},
        {"Light.diffuse", "light: [0, 0, 0], [0, 1, 0], [1, 0, 0]"},
        {"Light.glossy", "light: [0, 0, 0], [0, 1, 0], [1, 0, 0]"},
        {"Light.intensity", "light: 2, 3, 4"},
        {"Light.penumbraAngle", "light: 10, 20, 30"},
        {"Light.coneAngle", "light: 40, 50, 60"},
        {"Light.attenuation", "light: 0, 1, 2"},
        {"Light.visibilityReference", "light: null, child, child, scene.root"},
        {"Surface.environment", "scene.find('Metal').material: other, other"},
        {"ColorComponent.image", "other.components[0]: null, null"},
        {"Node.rotation", "child: [0, 0.6, 0, 0.8], [0.6, 0, 0, 0.8], [0, 0, 0.6, 0.8]"}};
    for (const ksTransformProperty &property : ksTransformEdits::properties())
        drags[std::string("Node.") + property.name] = "child: [0.5, 2, 3], [4, 5, 6], [7, 8, 9]";
    ksScriptRegistry::visitClasses([&drags](const QMetaObject &type, const QStringList &) {
        for (const ksScriptMember &member : ksScriptDescription::ownMembersOf(type))
            if (member.isWritable) {
                const QString name = ksScriptDescription::nameOf(type) + QLatin1Char('.') + member.name;
                EXPECT_EQ(drags.count(name.toStdString()), 1u) << name.toStdString();
            }
    });
    const std::set<std::string> refused = {"Container.material", "Light.visibilityReference",
                                           "Surface.environment", "ColorComponent.image"};
    for (const auto &[name, drag] : drags) {
        const std::string value = name.substr(name.find('.') + 1);
        const std::string script = "var child = scene.root.children[0], light = scene.find('Lamp').light;"
                                   "var other = scene.find('Other').material;\n" +
                                   drag.substr(0, drag.find(':')) + ".drag('" + value + "', [" +
                                   drag.substr(drag.find(':') + 1) + "]);";
        const int index = stack.index();
        EXPECT_EQ(errorOf(script),
                  refused.count(name) > 0 ? ":2: Error: '" + value + "' cannot be dragged" : "")
            << name;
        EXPECT_EQ(stack.index(), index + (refused.count(name) > 0 ? 0 : 1)) << name;
    }
    // A node that has no name yet is given one by a command that does not merge.
    EXPECT_EQ(errorOf("var bare = scene.root.add('');\nbare.drag('name', ['A', 'B']);"),
              ":2: Error: 'name' cannot be dragged");
}

TEST_F(ksScriptMistakesTest, RefusesAMaterialThatMirrorsItself)
{
    const std::string metalLabel = ksContainers::label(metal).toStdString();
    expectMistake("var metal = scene.find('Metal').material; metal.environment = metal;",
                  "Error: " + metalLabel + " cannot refer to " + metalLabel +
                      ", which refers to it: neither could ever be released");
}

TEST_F(ksScriptMistakesTest, RefusesToNestNodesTooDeep)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_THAT(errorOf("history.macro('m', function () {\n"
                        "    for (var node = scene.root; true; node = node.add('Link')) ; });"),
                testing::HasSubstr(": nodes nest 1000 deep at most"));
    run("history.clear();");
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksScriptMistakesTest, RefusesAMoveThatCannotBeExpressed)
{
    run("scene.root.scale([1, 0, 1]);");
    expectMistake("child.translate([1, 2, 3], { world: true });",
                  "Error: " + label + " cannot be placed in world space: what is above it is flattened");
    EXPECT_EQ(errorOf("history.undo(); scene.root.scale([1e-30, 1e-30, 1e-30]);"), "");
    expectMistake("child.translate([1e20, 0, 0], { world: true });",
                  "Error: " + label + " cannot be placed so far away");
    expectMistake("child.drag('translation', [[0, 0, 0], [0, -1e20, 0]], { world: true });",
                  "Error: " + label + " cannot be placed so far away");
}

TEST_F(ksScriptMistakesTest, AddsNoStepsThatDoNothing)
{
    run("var child = scene.find('Child'), own = child.attachment('ksNodeSettings');"
        "var light = scene.find('Lamp').light, v = child.variants, metal = scene.find('Metal').material;"
        "own.set('layer', own.get('layer')); own.set('comment', ''); own.set('opacity', 1);"
        "own.drag('opacity', [0.5, 1]); own.drag('opacity', []);"
        "child.translate([0, 0, 0]); child.scale([1, 1, 1]); child.rotationOrder = 'XYZ';"
        "child.translate(child.getTransform('translation', { world: true }), { world: true });"
        "child.drag('translation', [[1, 1, 1], [0, 0, 0]]); child.turn([0, 0, 0, 2]); child.apply({});"
        "light.intensity = 1; light.diffuse = [1, 1, 1]; light.visibilityReference = null;"
        "scene.find('Metal').material = metal; child.moveTo(scene.root, 0); child.name = 'Child';"
        "history.batch('b', [[own, 'layer', 0], [child, 'scale', [1, 1, 1]]]); history.batch('b', []);"
        "history.macro('m', function () { own.set('layer', 0); history.macro('n', function () {}); });"
        "history.beginMacro('m'); history.endMacro();");
    EXPECT_EQ(stack.count(), 0);
    run("scene.root.set('travMask', 1); history.undo();"
        "history.beginMacro('m'); history.endMacro(); history.macro('m', function () {}); history.redo();"
        "history.clear();");
    run("var v = scene.find('Child').variants; v.add('One'); v.add('Two');"
        "v.rename(0, 'One'); v.options(0, v.at(0).get('applyFlags')); v.move(1, 1); v.move([0, 1], 0);"
        "var links = scene.addLinkSet('Links'); links.add(scene.find('Child')); "
        "links.add(scene.find('Child'));");
    EXPECT_EQ(stack.count(), 4);
}

TEST_F(ksScriptMistakesTest, TellsTheCallStack)
{
    const std::string error =
        ksScriptErrorOf(engine, folder,
                        "function inner() {\n    scene.find('Tabel');\n}\n"
                        "function outer() {\n    [1].forEach(function (x) { inner(); });\n}\n"
                        "outer();");
    EXPECT_EQ(error, ":2: Error: there is no node 'Tabel'\n    at inner script.js:2\n    at script.js:5\n"
                     "    at outer script.js:5\n    at script.js:7");
    EXPECT_THAT(ksScriptErrorOf(engine, folder, "function f() { f(); return 1; }\nf();"),
                testing::HasSubstr("RangeError: Maximum call stack size exceeded."));
}

TEST_F(ksScriptMistakesTest, TakesBackAMacroThatFails)
{
    const std::string own = "var own = scene.root.attachment('ksNodeSettings');";
    EXPECT_EQ(printed(own + "own.set('lodBias', 1);"
                            "try { history.macro('m', function () { own.set('layer', 1);"
                            "    own.drag('opacity', [0.5, 0.25]); own.set('layer', 'two'); }); }"
                            "catch (error) { print(error.message); }"
                            "print(history.count, own.get('layer'), own.get('opacity'));"),
              "'layer' is a whole number from 0 to 255, not 'two'\n1 0 1\n");
    // One within another takes that along, whoever catches the error.
    EXPECT_EQ(errorOf(own +
                      "\nhistory.macro('outer', function () {\n    own.set('layer', 2);\n"
                      "    try { history.macro('inner', function () { own.set('layer', 3); none(); }); }\n"
                      "    catch (error) {}\n});"),
              ":2: Error: the macro 'inner' has failed");
    EXPECT_EQ(rootSettings()->getLayer(), 0);
    EXPECT_EQ(errorOf(own + "\nhistory.macro('outer', function () {\n    history.beginMacro('inner');\n"
                            "    own.set('layer', 3); });"),
              ":2: Error: the macro 'inner' is not ended");
    EXPECT_EQ(rootSettings()->getLayer(), 0);
    EXPECT_EQ(stack.count(), 1);
    EXPECT_FALSE(stack.canRedo());
}

/// Macros that are right are so after one that was not.
TEST_F(ksScriptMistakesTest, GoesOnAfterAStrayEnd)
{
    EXPECT_EQ(printed("var own = scene.root.attachment('ksNodeSettings');"
                      "function attempt(f) { try { f(); } catch (error) { print(error.message); } }"
                      "attempt(function () { history.endMacro(); });"
                      "history.macro('outer', function () {"
                      "    history.macro('inner', function () { own.set('layer', 1); });"
                      "    attempt(function () { history.endMacro(); }); own.set('layer', 2); });"
                      "history.macro('next', function () { own.set('layer', 3); });"
                      "print(history.count);"),
              "there is no open macro\nthe macro 'outer' ends with its function\n2\n");
    EXPECT_FALSE(history.isInMacro());
}

TEST_F(ksScriptMistakesTest, SurvivesWhatIsNestedTooDeep)
{
    const std::string deep = "var deep = []; for (var i = 0; i < 20000; ++i) deep = [deep];"
                             "var own = scene.root.attachment('ksNodeSettings');\n";
    for (const char *use :
         {"own.set('opacity', deep);", "own.drag('opacity', deep);", "history.batch('b', deep);",
          "scene.root.translate(deep);", "scene.find(deep);", "scene.root.apply({ scale: deep });",
          "print(deep);", "JSON.stringify(deep);",
          "JSON.stringify(1, function (key, value) { return [value]; });", "own.set('comment', { a: deep });",
          "history.batch('b', [[own, 'comment', deep]]);",
          "eval(new Array(20000).join('[') + new Array(20000).join(']'));", "console.log(deep);",
          "String(deep);", "throw deep;", "scene.addAim('Aim', deep, deep, deep);",
          "scene.find('Child').variants.move(deep, 0);"})
        EXPECT_NE(errorOf(deep + use), "") << use;
    EXPECT_NE(errorOf("var ring = []; ring[0] = ring; scene.root.translate(ring);"), "");
    EXPECT_NE(errorOf("scene.root.translate(new Array(4000000000));"), "");
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(ksScriptMistakesTest, SurvivesCodeThatRunsWhileValuesAreRead)
{
    EXPECT_EQ(errorOf("var child = scene.find('Child'), count = 0, options = {};\n"
                      "Object.defineProperty(options, 'index', { enumerable: true, get: function () {\n"
                      "    if (++count < 5) child.translate([count, 0, 0], options); return -1; } });\n"
                      "child.translate([9, 0, 0], options);\n"
                      "if (history.count !== 5 || child.getTransform('translation')[0] !== 9) throw 'no';"),
              "");
    EXPECT_THAT(errorOf("var options = { get index() { scene.root.translate([1, 1, 1], options); } };\n"
                        "scene.root.translate([1, 2, 3], options);"),
                testing::HasSubstr("RangeError"));
}
