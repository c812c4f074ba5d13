// SPDX-License-Identifier: MIT
#include <editor/session/ksOpenScene.h>
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGLightLinkSet.h>
#include <OSGUberLight.h>
#include <ksLights.h>

namespace {

/// "Root" with two children: "Child", and "Lamp", which is a light.
class ksLampScene : public ksEditorFixture
{
protected:
    ksLampScene()
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        CPEdit(lamp, osg::Node::CoreFieldMask);
        lamp->setCore(light);
        root->addChild(lamp);
    }

    const osg::NodePtr lamp = makeNode("Lamp");
    const osg::UberLightPtr light = osg::UberLight::create();
};

class ksScriptLightsTest : public ksScriptFixture<ksLampScene>
{
protected:
    void expectError(const std::string &script, const std::string &error)
    {
        expectErrorAfter("var lamp = scene.find('Lamp'), light = lamp.light;", script, error);
    }

    const ksOpenScene scene{root};
};

} // namespace

TEST_F(ksScriptLightsTest, EditsValues)
{
    run("var light = scene.find('Lamp').light;"
        "light.diffuse = [0.5, 0.25, 0]; light.glossy = [0, 0, 1]; light.intensity = 7;"
        "light.penumbraAngle = 10; light.coneAngle = 30; light.attenuation = 2;");
    EXPECT_EQ(stack.count(), 6);
    EXPECT_EQ(ksLights::getDiffuse(lamp), osg::Vec3f(0.5F, 0.25F, 0));
    EXPECT_EQ(ksLights::getGlossy(lamp), osg::Vec3f(0, 0, 1));
    EXPECT_EQ(ksLights::getLightValue(lamp), 7);
    EXPECT_EQ(ksLights::getPenumbraAngle(lamp), 10);
    EXPECT_EQ(ksLights::getConeAngle(lamp), 30);
    EXPECT_EQ(ksLights::getAttenuation(lamp), osg::UberLight::Quadratic);
    EXPECT_EQ(printed("var light = scene.find('Lamp').light;"
                      "print(light.diffuse, light.intensity, light.attenuation, light.visibilityReference);"),
              "0.5,0.25,0 7 2 null\n");
    run("while (history.index > 0) history.undo();");
    EXPECT_EQ(ksLights::getLightValue(lamp), 1);
}

TEST_F(ksScriptLightsTest, DragsAsOneStep)
{
    run("var light = scene.find('Lamp').light;"
        "light.drag('intensity', [2, 3, 4], 'Brighten');"
        "light.drag('diffuse', [[0, 0, 0], [0, 0, 0.5]]);"
        "light.drag('referenceDistance', [5, 6]);");
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(light->getReferenceDistance(), 6);
    run("history.undo(); history.undo(); print(history.index);");
    EXPECT_EQ(ksLights::getLightValue(lamp), 4);
    EXPECT_EQ(stack.undoText(), QStringLiteral("Brighten"));
}

TEST_F(ksScriptLightsTest, RefersToVisibility)
{
    run("scene.find('Lamp').light.visibilityReference = scene.find('Child');");
    EXPECT_EQ(light->getVisibilityReference(), child);
    run("scene.root.add('Other'); scene.find('Lamp').light.visibilityReference = scene.find('Other');");
    EXPECT_EQ(light->getVisibilityReference(), ksFindNode(root, "Other"));
    EXPECT_EQ(child->getExternalFlags(), 0u);
    run("scene.find('Lamp').light.visibilityReference = null;");
    EXPECT_EQ(light->getVisibilityReference(), osg::NullFC);
    run("while (history.index > 0) history.undo(); while (history.index < history.count) history.redo();");
}

TEST_F(ksScriptLightsTest, Links)
{
    EXPECT_EQ(
        printed(
            "var links = scene.addLinkSet('Links'), child = scene.find('Child'), lamp = scene.find('Lamp');"
            "links.add([child, lamp]); links.addLights(lamp);"
            "print(links.get('sceneNodes').length, links.get('lights')[0] === lamp);"
            "links.remove(child); links.removeLights([lamp]);"
            "print(links.get('sceneNodes')[0] === lamp, links.get('lights').length);"
            "history.undo(); history.undo(); print(links.get('sceneNodes')[0] === child);"),
        "2 true\ntrue 0\ntrue\n");
    EXPECT_NE(ksFindNode(root, "Links"), osg::NullFC);
    EXPECT_EQ(stack.count(), 5);
}

TEST_F(ksScriptLightsTest, LinksTheLightForItsInstance)
{
    const osg::NodePtr instance = makeNode("Instance");
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        CPEdit(instance, osg::Node::CoreFieldMask | osg::Node::ExternalFlagsFieldMask);
        instance->setCore(light);
        instance->setExternalFlags(osg::NodeExternalFlags::Instance);
        root->addChild(instance);
    }
    EXPECT_EQ(printed("var links = scene.addLinkSet('Links'), instance = scene.find('Instance');"
                      "links.addLights(instance); print(links.get('lights')[0].name);"
                      "links.removeLights(instance); print(links.get('lights').length);"
                      "history.undo(); print(links.get('lights').length);"),
              "Lamp\n0\n1\n");
}

TEST_F(ksScriptLightsTest, SayWhatIsWrong)
{
    const std::string lampLabel = ksContainers::label(lamp).toStdString();
    expectError("light.intensity = 'bright';", "'intensity' is a number, not 'bright'");
    expectError("light.diffuse = 1;", "'diffuse' is a colour [r, g, b], not 1");
    expectError("light.attenuation = 3;", "'attenuation' is 0, 1 or 2, not 3");
    expectError("light.attenuation = 1.5;", "'attenuation' is 0, 1 or 2, not 1.5");
    expectError("light.drag('intensity', 5);", "the values of a drag are an array");
    expectError("light.visibilityReference = 'Child';", "'Child' is no node");
    expectError("light.visibilityReference = light;",
                ksContainers::label(light).toStdString() + " is no node");
    stack.clear();
    run("scene.addLinkSet('Links');");
    const std::string links = "scene.find('Links').core.";
    expectError(links + "remove(lamp);", lampLabel + " is not linked");
    expectError(links + "removeLights([lamp]);", lampLabel + " is not linked");
    expectError(links + "add([lamp, null]);", "nothing is no node");
}
