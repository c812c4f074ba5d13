// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptCall.h>
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGPointLight.h>

#include <future>
#include <stdexcept>
#include <thread>

namespace {

using testing::EndsWith;
using testing::HasSubstr;

using ksScriptEngineTest = ksScriptFixture<ksEditorFixture>;

} // namespace

TEST_F(ksScriptEngineTest, Prints)
{
    EXPECT_EQ(run("print('one', 2, true, null); print();"), "one 2 true null\n\n");
}

TEST_F(ksScriptEngineTest, EvaluatesLineByLine)
{
    const QString name = QStringLiteral("console");
    EXPECT_EQ(engine.evaluate(QStringLiteral("var twice = function (n) { return 2 * n; };"), name),
              QString());
    EXPECT_EQ(engine.evaluate(QStringLiteral("twice(21)"), name), QStringLiteral("42"));
    EXPECT_TRUE(engine.globalNames().contains(QStringLiteral("twice")));
    EXPECT_TRUE(engine.globalNames().contains(QStringLiteral("scene")));
    const auto errorOf = [this, &name](const char *line) {
        return ksErrorOf([&] { engine.evaluate(QString::fromLatin1(line), name); });
    };
    EXPECT_EQ(errorOf("\nnothing"), "console:2: ReferenceError: nothing is not defined");
    EXPECT_EQ(errorOf("history.beginMacro('Half')"), "console:1: Error: the macro 'Half' is not ended");
    EXPECT_FALSE(history.isInMacro());
    engine.interrupt();
    EXPECT_EQ(errorOf("while (true) {}"), "console: interrupted");
    EXPECT_EQ(engine.evaluate(QStringLiteral("twice(1)"), name), QStringLiteral("2"));
}

TEST_F(ksScriptEngineTest, FindsNodes)
{
    EXPECT_EQ(run("print(scene.root.name, scene.find('Child').name, scene.has('Child'), scene.has('child'));"
                  "print(scene.nodes().map(function (node) { return node.name; }));"),
              "Root Child true false\nRoot,Child\n");
}

TEST_F(ksScriptEngineTest, SavesTheScene)
{
    const std::string path = folder.path("scene.gltf").toStdString();
    EXPECT_EQ(run("scene.save('" + path + "');"), "");
    EXPECT_TRUE(QFile::exists(folder.path("scene.gltf")));
    // A path starts at the script's folder.
    run("scene.save('beside.glb');");
    EXPECT_TRUE(QFile::exists(folder.path("beside.glb")));
    EXPECT_EQ(errorOf("\nscene.save('" + path + ".obj');"),
              ":2: Error: " + path + ".obj: scenes are saved as .gltf or .glb");
}

TEST_F(ksScriptEngineTest, FindsByNamePathAndNumber)
{
    EXPECT_EQ(
        printed("var child = scene.find('Child'), twin = child.add('Child');"
                "print(scene.findAll('Child').length, scene.findAll('Child')[1] === twin,"
                "      scene.findAll('x').length);"
                "print(twin.path, scene.at(twin.path) === twin, scene.at('') === scene.root);"
                "print(scene.byId(twin.id) === twin, scene.byId(twin.core.id) === twin.core);"
                "child.name = 'Other'; print(scene.has('Other'), scene.find('Child') === twin);"
                "history.undo(); print(scene.has('Other'), scene.find('Child') === child);"
                "child.remove(); print(scene.has('Child')); history.undo(); print(scene.has('Child'));"),
        "2 true 0\nChild/Child true true\ntrue true\ntrue true\nfalse true\nfalse\ntrue\n");
    EXPECT_EQ(errorOf("scene.at('Child/Nobody');"), ":1: Error: there is no node at 'Child/Nobody'");
    EXPECT_EQ(errorOf("var child = scene.find('Child'); child.remove(); child.path;"),
              ":1: Error: " + ksContainers::label(child).toStdString() + " is not in the scene");
    run("history.undo();");
    EXPECT_EQ(errorOf("scene.byId(0);"), ":1: Error: there is no container 0");
    EXPECT_EQ(errorOf("scene.byId(1000000);"), ":1: Error: there is no container 1000000");
}

/// A name is found, and an edit made, without a look at the rest of the scene.
TEST_F(ksScriptEngineTest, CostsWhatChanges)
{
    for (int i = 0; i < 1000; ++i) {
        CPEdit(child, osg::Node::ChildrenFieldMask);
        child->addChild(makeNode(("Node " + std::to_string(i)).c_str()));
    }
    run("scene.find('Node 0');");
    const std::size_t before = engine.visitedCount();
    run("for (var i = 0; i < 100; ++i) { var node = scene.find('Node ' + i);"
        "    node.attachment('ksNodeSettings').set('layer', 3); node.name = 'Name ' + i;"
        "    scene.find('Name ' + i).add('New ' + i); history.undo(); history.redo(); }");
    EXPECT_LT(engine.visitedCount() - before, 2000u);
}

TEST_F(ksScriptEngineTest, HasAConsole)
{
    EXPECT_EQ(run("console.log('one', 2); console.info(null); console.warn('three', [4]); console.error();"),
              "one 2\nnull\nwarning: three 4\nwarning: \n");
    std::vector<QString> warnings;
    engine.setWarningHandler([&warnings](const QString &text) { warnings.push_back(text); });
    EXPECT_EQ(run("console.warn('five');"), "");
    EXPECT_EQ(warnings, std::vector<QString>{QStringLiteral("five")});
}

TEST_F(ksScriptEngineTest, HelpsOut)
{
    EXPECT_THAT(run("help();"), HasSubstr("Objects: "));
    EXPECT_THAT(run("help(scene);"), HasSubstr("  find(name)\n      the first node of that name"));
    EXPECT_THAT(run("help(scene.root);"), HasSubstr("  translate(value, [options])\n"));
    EXPECT_THAT(run("help('Tags');"), HasSubstr("  addLayer(tag)\n"));
    EXPECT_THAT(run("help('coneAngle');"), testing::StartsWith("Light\n  coneAngle\n"));
    EXPECT_EQ(errorOf("help('nothing');"), ":1: Error: there is no help on 'nothing'");
}

TEST_F(ksScriptEngineTest, CallsFunctionsOfSteps)
{
    EXPECT_EQ(printed("var own = scene.root.attachment('ksNodeSettings');"
                      "own.switchFlag('locked', true, function () { print('locked', own.get('locked')); });"
                      "history.undo(); history.redo();"
                      "history.batch('b', [[own, 'layer', 5]], false, function () {"
                      "    print('layer', own.get('layer')); });"
                      "history.undo(); history.redo();"),
              "locked true\nlocked false\nlayer 5\nlayer 0\nlayer 5\n");
    EXPECT_EQ(
        errorOf("var own = scene.root.attachment('ksNodeSettings');"
                "history.batch('b', [[own, 'layer', 6]], false, function () { own.set('layer', 7); });"),
        ":1: Error: not possible within another step");
    EXPECT_EQ(rootSettings()->getLayer(), 6);
    for (const char *flag : {"true", "false"})
        EXPECT_EQ(errorOf("scene.root.attachment('ksNodeSettings').switchFlag('locked', " +
                          std::string(flag) + ", 5);"),
                  ":1: Error: the action is a function");
    EXPECT_EQ(errorOf("var own = scene.root.attachment('ksNodeSettings');"
                      "own.switchFlag('locked', true, function () { history.mark(); });"),
              ":1: Error: not possible within another step");
}

/// Whichever guard is asked next, a step fails by the first error of the functions that it calls, which says
/// where it is.
TEST_F(ksScriptEngineTest, TellsTheErrorsOfFunctionsOfSteps)
{
    const std::string script = "var own = scene.root.attachment('ksNodeSettings'), fails = false, seen = 0;\n"
                               "function first() { own.get('layer'); if (fails)\n    none(); }\n"
                               "function second() { seen = own.get('layer'); if (fails) throw 'text'; }\n"
                               "history.macro('m', function () {\n"
                               "    history.batch('a', [[own, 'layer', 1]], false, second);\n"
                               "    history.batch('b', [[own, 'lodBias', 1]], false, first); });\n"
                               "fails = true;\n";
    EXPECT_EQ(errorOf(script + "try { history.undo(); } catch (error) { print('seen', seen); throw error; }"),
              ":3: ReferenceError: none is not defined");
    // The second is not disturbed by the error of the first.
    EXPECT_THAT(out.str(), HasSubstr("seen 0\n"));
    EXPECT_EQ(errorOf(script + "history.clear(); fails = false;\n"
                               "try { history.batch('a', [[own, 'layer', 0]], false, function () {\n"
                               "    own.nothing; }); } catch (error) { print(error.message); }\n"
                               "history.undo();"),
              ":11: TypeError: " + ksContainers::label(rootSettings()).toStdString() +
                  " has no property 'nothing'");
    EXPECT_THAT(out.str(), HasSubstr("has no property 'nothing'\n"));
    EXPECT_EQ(errorOf("var own = scene.root.attachment('ksNodeSettings');\n"
                      "own.switchFlag('locked', true, function () { throw 'text'; });"),
              ":2: Error: uncaught text");
}

TEST_F(ksScriptEngineTest, TellsOfWhateverIsThrown)
{
    const std::string mine = "function Mine(text) { this.name = 'Mine'; this.message = text; }"
                             "Mine.prototype = Object.create(Error.prototype);"
                             "function fails() { throw 7; }";
    int layer = 0;
    for (const auto &[thrown, told] : std::vector<std::pair<std::string, std::string>>{
             {"new Mine('text')", "Mine: text"},
             {"{ toString: fails }", "Error: uncaught object"},
             {"Object.create(null)", "Error: uncaught object"},
             {"new Proxy({}, { get: fails, getPrototypeOf: fails })", "Error: uncaught object"},
             {"Symbol('s')", "Error: uncaught Symbol(s)"},
             {"undefined", "Error: uncaught undefined"},
             {"5", "Error: uncaught 5"}}) {
        const std::string script = mine + "function fail() { throw " + thrown + "; }\n";
        EXPECT_EQ(errorOf(script + "fail();"), ": " + told);
        // That of a step is told where the step is.
        EXPECT_EQ(errorOf(script + "history.batch('b', [[scene.root.attachment('ksNodeSettings'), 'layer', " +
                          std::to_string(++layer) + "]], false, fail);"),
                  ":2: " + told);
    }
    EXPECT_EQ(errorOf("var error = new Error('x');\n"
                      "Object.defineProperty(error, 'message', { get: function () { throw 7; } });"
                      "throw error;"),
              ":1: uncaught error");
}

/// It is ended, nothing of it is called again, and what was open is taken back.
TEST_F(ksScriptEngineTest, EndsFunctionsOfStepsThatDoNotEnd)
{
    engine.addFunction(QStringLiteral("stop"), [this] { engine.interrupt(); });
    for (const std::string open : {"history.beginMacro('m');", "history.macro('m', function () {"}) {
        EXPECT_EQ(errorOf("var own = scene.root.attachment('ksNodeSettings');" + open +
                          "own.set('lodBias', 1);"
                          "history.batch('b', [[own, 'layer', 5]], false, function () {"
                          "    stop(); for (;;) {} });" +
                          (open.back() == '{' ? "});" : "")),
                  ": interrupted");
        EXPECT_FALSE(history.isInMacro());
        EXPECT_EQ(rootSettings()->getLayer(), 0);
        EXPECT_EQ(rootSettings()->getLodBias(), 0);
    }
    EXPECT_EQ(
        errorOf("history.batch('b', function () { scene.root.attachment('ksNodeSettings').set('layer', 1);"
                "    stop(); for (;;) {} });"),
        ": interrupted");
    EXPECT_EQ(rootSettings()->getLayer(), 0);
    EXPECT_EQ(stack.count(), 0);
    run("scene.root.attachment('ksNodeSettings').set('layer', 1);");
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(ksScriptEngineTest, KeepsNoObjectsOfWhatHasGone)
{
    run("for (var i = 0; i < 30; ++i) { for (var j = 0; j < 100; ++j) scene.root.add('New');"
        "    history.reset(); history.clear(); }");
    EXPECT_LT(engine.objectCount(), 2000u);
    EXPECT_EQ(printed("var child = scene.find('Child'); for (var i = 0; i < 2000; ++i) scene.root.add('New');"
                      "print(child === scene.find('Child')); history.reset(); history.clear();"),
              "true\n");
}

/// Nothing is left of the functions of steps that are forgotten.
TEST_F(ksScriptEngineTest, ForgetsFunctionsOfSteps)
{
    run("var own = scene.root.attachment('ksNodeSettings');"
        "history.batch('b', [[own, 'layer', 5]], false, function () {}); history.clear();");
    EXPECT_EQ(stack.findChildren<ksScriptCall *>().size(), 0);
}

TEST_F(ksScriptEngineTest, WalksFromContainerToContainer)
{
    EXPECT_EQ(
        run("var child = scene.root.children[0];"
            "print(child.name, child.type, child.parent.name, child.children.length, scene.root.parent);"
            "print(child.core.type, child.core.name, child.core.core, child.core.children);"
            "print(child.attachments.length, child.attachment('ksNodeSettings').type, "
            "      child.attachment('Group'));"
            "print(child === scene.find('Child'), child.id === scene.find('Child').id);"
            "print(child.attachment('ksNodeSettings').fields.slice(2, 4));"),
        "Child Node Root 0 null\nGroup Child null null\n2 ksNodeSettings null\ntrue true\nlayer,lodBias\n");
}

TEST_F(ksScriptEngineTest, FindsWhatANodeShows)
{
    const osg::UberMaterialPtr material = osg::UberMaterial::create();
    const osg::ColorComponentPtr plain = osg::ColorComponent::create();
    const osg::ColorComponentPtr textured = osg::ColorComponent::create();
    osg::setName(material, "Oak");
    const osg::ImagePtr image = osg::Image::create();
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    const osg::NodePtr shape = makeNode("Shape");
    const osg::NodePtr lamp = makeNode("Lamp");
    {
        CPEditAll(image);
        CPEditAll(textured);
        CPEditAll(material);
        CPEditAll(mesh);
        CPEditAll(shape);
        CPEditAll(lamp);
        CPEditAll(child);
        image->setName("oak.png");
        textured->setImage(image);
        material->addColorComponent(plain);
        material->addColorComponent(textured);
        mesh->setMaterial(material);
        shape->setCore(mesh);
        lamp->setCore(osg::UberLight::create());
        child->addChild(shape);
        child->addChild(lamp);
    }
    EXPECT_EQ(run("var child = scene.find('Child');"
                  "print(child.material.name, child.image.name, child.light.type);"
                  "print(scene.find('Shape').material.name, scene.find('Shape').light);"
                  "print(child.material.image.name, scene.find('Lamp').material, scene.root.image);"
                  "var components = child.material.get('colorComponentData');"
                  "print(components[0].image, components[1].image === child.image);"),
              "Oak oak.png UberLight\nOak null\noak.png null null\nnull true\n");
}

TEST_F(ksScriptEngineTest, ReadsFieldsOfEveryKind)
{
    const osg::ksNodeSettingsPtr settings = childSettings();
    settings->setLodBias(-3);
    settings->setOpacity(0.5F);
    settings->setLocked(true);
    settings->setComment("oak");
    settings->setUserFlags(9007199254740991u);
    settings->setRevision(-9007199254740993);
    EXPECT_EQ(
        run("var own = scene.find('Child').attachment('ksNodeSettings');"
            "function show(field) { var value = own.get(field); print(typeof value, value); }"
            "['lodBias', 'opacity', 'locked', 'comment', 'userFlags', 'revision'].forEach(show);"
            "print(own.get('parents')[0].name, scene.root.get('parent'), scene.root.get('children').length);"
            "print(typeof scene.root.get('volume'));"),
        "number -3\nnumber 0.5\nboolean true\nstring oak\nnumber 9007199254740991\n"
        "string -9007199254740993\nChild null 1\nstring\n");
}

TEST_F(ksScriptEngineTest, ReadsVectorsAsArrays)
{
    const osg::PointLightPtr light = osg::PointLight::create();
    {
        CPEditAll(light);
        CPEditAll(child);
        light->setPosition(osg::Pnt3f(1, 0.5F, -2));
        light->setDiffuse(osg::Color4f(0.25F, 0.5F, 0.75F, 1));
        child->setCore(light);
    }
    EXPECT_EQ(run("var core = scene.find('Child').core;"
                  "print(core.get('position'), core.get('diffuse').length, core.get('diffuse')[2]);"),
              "1,0.5,-2 4 0.75\n");
}

TEST_F(ksScriptEngineTest, EditsThroughTheHistory)
{
    run("var own = scene.find('Child').attachment('ksNodeSettings');"
        "own.set('layer', 9);"
        "own.set('layer', 10, 'Raise the layer');"
        "own.set('locked', true);");
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(childSettings()->getLayer(), 10);
    EXPECT_THAT(out.str(), HasSubstr("step 1: Set layer of 'Child': "));
    EXPECT_THAT(out.str(), HasSubstr("step 2: Raise the layer: "));
    run("while (history.index > 0) history.undo(); print(history.index, history.count);");
    EXPECT_EQ(childSettings()->getLayer(), 0);
    run("history.redo();");
    EXPECT_EQ(childSettings()->getLayer(), 9);
}

TEST_F(ksScriptEngineTest, DragsMergeIntoOneStep)
{
    EXPECT_EQ(
        run("scene.find('Child').attachment('ksNodeSettings').drag('opacity', [0.75, 0.5, 0.25], 'Fade');"),
        "step 1: Fade: ksNodeSettings 'Child' opacity 1 -> 0.25\n");
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(childSettings()->getOpacity(), 0.25F);
    run("history.undo();");
    EXPECT_EQ(childSettings()->getOpacity(), 1);
}

TEST_F(ksScriptEngineTest, BatchesAreOneStep)
{
    run("var all = scene.nodes().map(function (node) { return node.attachment('ksNodeSettings'); });"
        "function fade(opacity, merging) {"
        "    history.batch('Fade', all.map(function (own) { return [own, 'opacity', opacity]; }), merging);"
        "}"
        "fade(0.5); fade(0.25); fade(0.125, true);");
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(rootSettings()->getOpacity(), 0.125F);
    EXPECT_EQ(childSettings()->getOpacity(), 0.125F);
    run("history.undo();");
    EXPECT_EQ(rootSettings()->getOpacity(), 0.5F);
}

TEST_F(ksScriptEngineTest, MacrosAreOneStepAndGiveTheResult)
{
    EXPECT_THAT(run("var own = scene.root.attachment('ksNodeSettings');"
                    "print(history.macro('Both', function () { own.set('layer', 1); own.set('lodBias', 2);"
                    "                                          return 'done'; }));"),
                EndsWith("done\n"));
    EXPECT_EQ(stack.count(), 1);
    run("history.undo();");
    EXPECT_EQ(rootSettings()->getLodBias(), 0);
}

TEST_F(ksScriptEngineTest, TakesBackAMacroThatEndsByAnError)
{
    EXPECT_EQ(errorOf("history.macro('Both', function () {\n"
                      "    scene.root.attachment('ksNodeSettings').set('layer', 1);\n"
                      "    nothing();\n"
                      "});"),
              ":3: ReferenceError: nothing is not defined");
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(rootSettings()->getLayer(), 0);
}

TEST_F(ksScriptEngineTest, MarksResetsAndClears)
{
    run("var own = scene.root.attachment('ksNodeSettings');"
        "own.set('layer', 1); history.mark(); own.set('layer', 2); own.set('layer', 3); history.reset();");
    EXPECT_EQ(rootSettings()->getLayer(), 1);
    EXPECT_EQ(stack.index(), 1);
    run("history.clear();");
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(ksScriptEngineTest, ErrorsTellLineAndReason)
{
    EXPECT_EQ(errorOf("print('one');\nscene.find('Tabel').set('layer', 1);"),
              ":2: Error: there is no node 'Tabel'");
    EXPECT_EQ(errorOf("\n\nvar = 3;"), ":3: SyntaxError: Expected token `identifier'");
    EXPECT_EQ(errorOf("null.core;"), ":1: TypeError: Cannot read property 'core' of null");
    EXPECT_EQ(errorOf("function deep() {\n    throw new Error('too deep');\n}\ndeep();"),
              ":2: Error: too deep");
    EXPECT_EQ(errorOf("throw 'a text';"), ": Error: uncaught a text");
}

TEST_F(ksScriptEngineTest, ErrorsOfEditsTellLineAndReason)
{
    const std::string label = ksContainers::label(childSettings()).toStdString();
    const std::string own = "var own = scene.find('Child').attachment('ksNodeSettings');\n";
    EXPECT_EQ(errorOf(own + "own.set('layer', 300);"),
              ":2: Error: 'layer' is a whole number from 0 to 255, not 300");
    EXPECT_EQ(errorOf(own + "own.set('layers', 3);"),
              ":2: Error: " + label + " has no field 'layers' that can be edited");
    EXPECT_EQ(errorOf(own + "own.get('layers');"), ":2: Error: " + label + " has no field 'layers'");
    EXPECT_EQ(errorOf(own + "own.drag('layer', 3);"), ":2: Error: the values of a drag are an array");
    EXPECT_EQ(errorOf(own + "history.batch('b', [[own, 'layer', 1], ['own', 'layer', 1]]);"),
              ":2: Error: an edit of a batch is an array of a container, a field and a value");
    EXPECT_EQ(errorOf(own + "history.batch('b', 5);"),
              ":2: Error: the edits of a batch are an array or a function");
    EXPECT_EQ(errorOf(own + "history.batch('b', [[own, 'layer', -1]]);"),
              ":2: Error: 'layer' is a whole number from 0 to 255, not -1");
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(childSettings()->getLayer(), 0);
}

TEST_F(ksScriptEngineTest, ErrorsOfTheHistoryTellTheReason)
{
    EXPECT_EQ(errorOf("history.undo();"), ":1: Error: there is nothing to undo");
    EXPECT_EQ(errorOf("history.redo();"), ":1: Error: there is nothing to redo");
    for (const char *call : {"undo", "redo", "reset", "clear"})
        EXPECT_EQ(errorOf(std::string("history.macro('m', function () { history.") + call + "(); });"),
                  ":1: Error: not possible within a macro")
            << call;
}

TEST_F(ksScriptEngineTest, RefusesToEndAMacroThatIsNotOpen)
{
    const std::string error = "Error: there is no open macro";
    EXPECT_EQ(errorOf("\nhistory.endMacro();"), ":2: " + error);
    EXPECT_EQ(errorOf("\nhistory.macro('m',\n  function () { history.endMacro(); });"),
              ":3: Error: the macro 'm' ends with its function");
    // One that is open, but not the script's, stays so.
    history.beginMacro(QStringLiteral("Mine"));
    EXPECT_EQ(errorOf("\nhistory.endMacro();"), ":2: " + error);
    EXPECT_TRUE(history.isInMacro());
    history.endMacro();
    // Nothing is out of step afterwards.
    run("var own = scene.root.attachment('ksNodeSettings');"
        "history.clear(); history.macro('m', function () { own.set('layer', 1); own.set('lodBias', 2); });"
        "history.undo();");
    EXPECT_EQ(rootSettings()->getLayer(), 0);
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(ksScriptEngineTest, TakesBackMacrosThatAScriptLeavesOpen)
{
    EXPECT_EQ(errorOf("\nhistory.beginMacro('Outer');\nhistory.beginMacro('Inner');\n"
                      "scene.root.attachment('ksNodeSettings').set('layer', 1);"),
              ":2: Error: the macro 'Outer' is not ended");
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(rootSettings()->getLayer(), 0);
    run("history.beginMacro('Both'); scene.root.set('travMask', 1); history.endMacro();");
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(ksScriptEngineTest, KnowsThatAMacroHasEndedWhoseEndThrows)
{
    stack.setMessageCallback([](const char *, ksMessage &, int) -> bool { throw std::runtime_error("no"); });
    EXPECT_EQ(errorOf("\nhistory.macro('m', function () {"
                      "    scene.root.attachment('ksNodeSettings').set('layer', 1); });"),
              ":2: Error: no");
    stack.setMessageCallback(nullptr);
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(errorOf("history.endMacro();"), ":1: Error: there is no open macro");
}

TEST_F(ksScriptEngineTest, EndsMacrosOfAScriptThatFails)
{
    EXPECT_EQ(errorOf("history.beginMacro('Open');\nnothing();"),
              ":2: ReferenceError: nothing is not defined");
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(errorOf("\n\nhistory.undo(); history.undo();"), ":3: Error: there is nothing to undo");
}

TEST_F(ksScriptEngineTest, DoesNothingOfADragThatFails)
{
    EXPECT_EQ(errorOf("var own = scene.root.attachment('ksNodeSettings');\n"
                      "own.drag('opacity', [0.5, 0.25, 'three', 0.125]);"),
              ":2: Error: 'opacity' is a number, not 'three'");
    EXPECT_EQ(rootSettings()->getOpacity(), 1);
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(ksScriptEngineTest, ReadsAllValuesBeforeTheyAreUsed)
{
    for (const char *call : {"undo()", "clear()", "beginMacro('m')"})
        EXPECT_EQ(errorOf(std::string("var own = scene.root.attachment('ksNodeSettings'), values = [0.5, 0];"
                                      "Object.defineProperty(values, 1, { get: function () {"
                                      "    own.set('layer', 1 + own.get('layer')); history.") +
                          call +
                          "; return 0.25; } });"
                          "own.drag('opacity', values); if (history.index === 0) throw 'no drag';"
                          "if (!" +
                          (call[0] == 'b' ? "true" : "false") +
                          ") history.undo();"
                          "else history.endMacro();"),
                  "")
            << call;
    EXPECT_EQ(rootSettings()->getOpacity(), 0.25F);
    EXPECT_EQ(errorOf("var values = [0.5]; Object.defineProperty(values, 0, { get: function () {"
                      "    scene.root.children[0].remove(); history.clear(); return 0.25; } });\n"
                      "scene.find('Child').attachment('ksNodeSettings').drag('opacity', values);"),
              ":2: Error: the container " + std::to_string(childSettings().getFieldContainerId()) +
                  " has gone");
}

TEST_F(ksScriptEngineTest, KeepsWhatIsGlobal)
{
    for (const char *name : {"scene", "history", "console", "print", "help"})
        EXPECT_EQ(errorOf(std::string(name) + " = 5;"),
                  ":1: TypeError: '" + std::string(name) + "' cannot be replaced");
    EXPECT_EQ(run("(function (scene) { print(scene); }(5)); print(scene.root.name);"), "5\nRoot\n");
}

/// Scripts get at nothing that stands behind the objects.
TEST_F(ksScriptEngineTest, HidesWhatIsItsOwn)
{
    EXPECT_EQ(run("var seen = [];"
                  "var spy = new Proxy({}, { get: function (target, key) { seen.push(scene.root[key]); } });"
                  "try { scene.find('Child').moveTo(spy); } catch (error) {} print(seen.length > 0, seen);"
                  "print(Object.getOwnPropertyNames(scene.root), Object.keys(scene.root),"
                  "      scene.root.hasOwnProperty('native'),"
                  "      Object.getOwnPropertyDescriptor(scene.root, 'native'));"),
              "true \n  false undefined\n");
}

TEST_F(ksScriptEngineTest, CallsFunctionsOfTheProgram)
{
    int calls = 0;
    engine.addFunction(QStringLiteral("count"), [&calls] {
        if (++calls > 2)
            throw ksEditorError("enough");
    });
    EXPECT_EQ(errorOf("count();\ncount();\ncount();"), ":3: Error: enough");
    EXPECT_EQ(calls, 3);
}

/// Whatever it is doing then: most of the time it looks a method up.
TEST_F(ksScriptEngineTest, EndsAScriptThatIsInterrupted)
{
    for (int i = 0; i <= 20; ++i) {
        std::thread other;
        ksScriptEngine interrupted(history, out);
        interrupted.addFunction(QStringLiteral("begin"), [&interrupted, &other] {
            other = std::thread([&interrupted] { interrupted.interrupt(); });
        });
        const std::string call = i < 20 ? "scene.has('Child');" : "";
        EXPECT_EQ(ksScriptErrorOf(interrupted, folder,
                                  "begin(); while (true) { try { " + call + " } catch (error) {} }"),
                  ": interrupted");
        other.join();
    }
}

/// The engine stands no interruption there.
TEST_F(ksScriptEngineTest, EndsAScriptThatSetsAProperty)
{
    for (int i = 0; i < 20; ++i) {
        std::thread other;
        ksScriptEngine interrupted(history, out);
        interrupted.addFunction(QStringLiteral("begin"), [&interrupted, &other] {
            other = std::thread([&interrupted] { interrupted.interrupt(); });
        });
        EXPECT_EQ(ksScriptErrorOf(interrupted, folder, "begin(); while (true) { scene.root.name = 'One'; }"),
                  ": interrupted");
        other.join();
    }
}

/// It has called nothing yet.
TEST_F(ksScriptEngineTest, EndsAScriptThatIsInterruptedWhileItIsRead)
{
    std::promise<void> started;
    std::thread other([this, &started] {
        started.set_value();
        engine.interrupt();
    });
    started.get_future().wait();
    EXPECT_EQ(errorOf("for (var i = 0; i < 1e6; ++i) { scene.has('Child'); }"), ": interrupted");
    other.join();
}

TEST_F(ksScriptEngineTest, ScriptsMayCatchErrors)
{
    EXPECT_EQ(run("try { scene.find('Tabel'); } catch (error) { print(error.message); }"),
              "there is no node 'Tabel'\n");
}

TEST_F(ksScriptEngineTest, KnowsContainersThatHaveGone)
{
    run("gone = scene.find('Child').attachment('ksNodeSettings');");
    const std::string id = std::to_string(childSettings().getFieldContainerId());
    child->subAttachment(childSettings());
    osg::endEditCP(child, osg::Node::AttachmentsFieldMask);
    ksSyncAspects();
    for (const char *use : {"gone.name;", "gone.get('layer');", "gone.set('layer', 1);", "gone.core;",
                            "history.batch('b', [[gone, 'layer', 1]]);"})
        EXPECT_EQ(errorOf(use), ":1: Error: the container " + id + " has gone") << use;
}

/// Nothing is left of what was to be added to it.
TEST_F(ksScriptEngineTest, AddsNothingToWhatHasGone)
{
    run("gone = scene.find('Child'); gone.remove(); history.clear();");
    const std::ptrdiff_t before = ksLivingContainers();
    for (const char *use :
         {"gone.add('New');", "gone.copy(scene.root);", "scene.root.copy(gone);", "scene.root.moveTo(gone);",
          "gone.tags.add('x');", "gone.name = 'x';", "scene.addAim('Aim', scene.root, gone, []);"})
        EXPECT_NE(errorOf(use), "") << use;
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksScriptEngineTest, RefusesFilesThatCannotBeRead)
{
    const QString path = folder.path("missing.js");
    EXPECT_EQ(ksErrorOf([&] { engine.run(path); }), path.toStdString() + ": No such file or directory");
}
