// SPDX-License-Identifier: MIT
#include <tests/editor/ksTransformScene.h>
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>

#include <stdexcept>

namespace {

/// The transforms' scene, with a light "Lamp" and meshes "Gold" and "Silver".
class ksBatchScene : public ksTransformScene
{
protected:
    ksBatchScene()
    {
        addMesh("Gold", gold);
        addMesh("Silver", silver);
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->addChild(ksContainers::createNode("Lamp", light));
    }

    void addMesh(const char *name, const osg::UBRDFMaterialPtr &material) const
    {
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        CPEditAll(mesh);
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        mesh->setMaterial(material);
        root->addChild(ksContainers::createNode(name, mesh));
    }

    const osg::UberLightPtr light = osg::UberLight::create();
    const osg::UBRDFMaterialPtr gold = osg::UBRDFMaterial::create();
    const osg::UBRDFMaterialPtr silver = osg::UBRDFMaterial::create();
};

class ksScriptBatchTest : public ksScriptFixture<ksBatchScene>
{
protected:
    /// Runs \a edits as a batch, and expects that it is one step, after which \a state is \a after, and
    /// \a before when it is undone.
    void expectStep(const std::string &edits, const std::string &state, const std::string &before,
                    const std::string &after)
    {
        EXPECT_EQ(printed(Names + "var state = function () { return " + state +
                          "; };"
                          "history.batch('Batch', function () { " +
                          edits +
                          " });"
                          "print(state()); history.undo(); print(state()); history.redo(); print(state());"),
                  after + '\n' + before + '\n' + after + '\n')
            << edits;
        EXPECT_EQ(stack.count(), 1) << edits;
        history.undo();
    }

    /// Expects that \a script ends by \a error and does nothing.
    void expectNothing(const std::string &script, const std::string &error)
    {
        expectErrorAfter(Names, script, error);
        EXPECT_EQ(childSettings()->getLayer(), 0);
    }

    const std::string Names =
        "var child = scene.find('Child'), own = child.attachment('ksNodeSettings'), root = scene.root;"
        "var lamp = scene.find('Lamp'), light = lamp.light, gold = scene.find('Gold').material;"
        "var silver = scene.find('Silver').material;";
};

} // namespace

TEST_F(ksScriptBatchTest, TakesEveryEdit)
{
    expectStep("child.name = 'A'; own.set('layer', 3); child.translate([1, 2, 3]); child.name += 'B';",
               "[child.name, own.get('layer'), child.getTransform('translation')]", "Child,0,0,0,0",
               "AB,3,1,2,3");
    expectStep("light.intensity = 4; light.visibilityReference = child; light.visibilityReference = lamp;",
               "[light.intensity, light.visibilityReference && light.visibilityReference.name]", "1,",
               "4,Lamp");
    expectStep("child.variants.add('One'); child.variants.add('Two'); child.variants.rename(1, 'Last');"
               "child.variants.move(1, 0); child.variants.options(0, 3); child.variants.remove(1);",
               "child.variants.names.concat(child.variants.length && child.variants.at(0).get('applyFlags'))",
               "0", "Last,3");
    expectStep("child.tags.add('wood'); child.tags.add('old'); child.tags.addLayer('roof');"
               "child.tags.remove('wood');",
               "[child.tags.user, child.tags.layers]", ",", "old,roof");
    expectStep(
        "var added = root.add('New'); added.add('Below'); added.moveTo(child, 0); child.copy(root, 'C');"
        "lamp.remove();",
        "scene.nodes().map(function (node) { return node.name; })", "Root,Child,Gold,Silver,Lamp",
        "Root,Child,New,Below,Gold,Silver,C,New,Below");
    expectStep("child.apply({ scale: [2, 2, 2] }); child.turn([0, 0, 0, 1]); child.rotationOrder = 'ZYX';",
               "[child.getTransform('scale'), child.rotationOrder]", "1,1,1,XYZ", "2,2,2,ZYX");
    expectStep("gold.environment = silver; scene.find('Silver').material = gold;",
               "[gold.environment === silver, scene.find('Silver').material === gold]", "false,false",
               "true,true");
}

TEST_F(ksScriptBatchTest, TakesLinksAndConstraints)
{
    expectStep("var links = scene.addLinkSet('Links'); links.add([child, lamp]); links.remove(lamp);"
               "links.addLights(lamp); var aim = scene.addAim('Aim', child, [lamp, root], []);"
               "aim.remove(lamp);",
               "scene.has('Links') ? [scene.find('Links').core.get('sceneNodes').length,"
               "scene.find('Links').core.get('lights').length, scene.find('Aim').core.get('sources').length]"
               ": 'none'",
               "none", "1,1,1");
}

/// A flag is switched when the batch is done: nothing could take it back before.
TEST_F(ksScriptBatchTest, SwitchesFlagsInTheEnd)
{
    EXPECT_EQ(printed(Names + "history.batch('b', function () { own.set('layer', 1);"
                              "    own.switchFlag('locked', true, function () { print('switched'); });"
                              "    print(own.get('locked')); });"
                              "print(own.get('locked'), history.count);"),
              "false\nswitched\ntrue 1\n");
}

TEST_F(ksScriptBatchTest, TakesNamesAndVisibilityAsValues)
{
    EXPECT_EQ(printed(Names +
                      "history.batch('b', [[child, 'name', 'A'], [light, 'visibilityReference', child],"
                      "                    [light, 'intensity', 5]]);"
                      "print(child.name, light.visibilityReference === child, history.count);"
                      "history.undo(); print(child.name, light.visibilityReference);"),
              "A true 1\nChild null\n");
}

TEST_F(ksScriptBatchTest, MergesWhenItsEditsDo)
{
    run(Names + "[1, 2, 2].forEach(function (x, round) {"
                "    history.batch('b', function () { own.set('layer', x); child.translate([x, 0, 0]); },"
                "                  round > 0); });");
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(childSettings()->getLayer(), 2);
}

TEST_F(ksScriptBatchTest, IsNoStepWhenItChangesNothing)
{
    run(Names + "own.set('lodBias', 1); history.undo();");
    run(Names + "history.batch('b', function () {});"
                "history.batch('b', function () { own.set('layer', 1); own.set('layer', 0); });"
                "history.batch('b', [[own, 'layer', 1], [own, 'layer', 0]]);"
                "history.batch('b', function () { child.name = 'A';"
                "    child.name = 'Child'; root.add('New').remove(); child.variants.add('V');"
                "    child.variants.remove(0); own.set('layer', 0); }); ");
    EXPECT_EQ(stack.count(), 1);
    EXPECT_TRUE(stack.canRedo());
}

TEST_F(ksScriptBatchTest, RecordsTagsOfNothing)
{
    run("history.batch('b', function () { scene.recordTag('x', true); });"
        "history.batch('b', function () { scene.recordTag('x', false, true); });");
    EXPECT_EQ(stack.count(), 2);
}

TEST_F(ksScriptBatchTest, DoesNothingWhenAnEditFails)
{
    const std::string set = "own.set('layer', 1); child.tags.add('x'); child.name = 'A';";
    expectNothing(
        "history.batch('b', function () { " + set + " child.tags.remove('y'); });",
        ksContainers::label(child).replace(QStringLiteral("Child"), QStringLiteral("A")).toStdString() +
            " has no tag 'y'");
    expectNothing("history.batch('b', [[own, 'layer', 1], [own, 'layers', 2]]);",
                  ksContainers::label(childSettings()).toStdString() +
                      " has no field 'layers' that can be edited");
    EXPECT_EQ(printed(Names + "print(child.name, child.tags.user.length);"), "Child 0\n");
    EXPECT_EQ(errorOf(Names + "\nhistory.batch('b', function () {" + set + "\nnone(); });"),
              ":3: ReferenceError: none is not defined");
    EXPECT_EQ(stack.count(), 0);
}

/// Each edit sees those before it.
TEST_F(ksScriptBatchTest, RefusesAMaterialThatMirrorsItself)
{
    const std::string refusal = ksContainers::label(silver).toStdString() + " cannot refer to " +
                                ksContainers::label(gold).toStdString() +
                                ", which refers to it: neither could ever be released";
    expectNothing("history.batch('b', [[gold, 'environment', silver], [silver, 'environment', gold]]);",
                  refusal);
    EXPECT_EQ(gold->getEnvironment(), osg::NullFC);
}

TEST_F(ksScriptBatchTest, RefusesWhatIsNoEdit)
{
    for (const char *call :
         {"history.undo();", "history.redo();", "history.reset();", "history.clear();", "history.mark();",
          "history.beginMacro('m');", "history.endMacro();", "history.macro('m', function () {});",
          "history.batch('c', []);", "own.drag('layer', [1, 2]);", "child.drag('scale', [[2, 2, 2]]);"})
        expectNothing(std::string("history.batch('b', function () { own.set('layer', 1); ") + call + " });",
                      "not possible within a batch");
    expectNothing("history.batch('b', 5);", "the edits of a batch are an array or a function");
}

TEST_F(ksScriptBatchTest, IsAPartOfAMacro)
{
    EXPECT_EQ(printed(Names + "history.macro('m', function () { own.set('layer', 1);"
                              "    history.batch('b', function () { own.set('layer', 2);"
                              "        child.tags.add('x'); }); });"
                              "print(history.count, own.get('layer')); history.undo();"
                              "print(own.get('layer'), child.tags.user.length);"),
              "1 2\n0 0\n");
}
