// SPDX-License-Identifier: MIT
#include <editor/script/ksScriptRegistry.h>
#include <tests/editor/script/ksScriptFixture.h>
#include <tests/editor/script/ksScriptSun.h>

#include <OpenSG/OSGPointLight.h>

namespace {

using ksScriptRegistryTest = ksScriptFixture<ksEditorFixture>;

const ksScriptRegistry::Wrapper<osg::LightPtr, ksScriptLamp> lamp;
const ksScriptRegistry::Wrapper<osg::DirectionalLightPtr, ksScriptSun> sun;
const ksScriptRegistry::Part<osg::LightPtr, ksScriptSocket> socket("socket");
const ksScriptRegistry::Global<ksScriptAlmanac> almanac("almanac");

void giveCore(const osg::NodePtr &node, const osg::NodeCorePtr &core)
{
    CPEdit(node, osg::Node::CoreFieldMask);
    node->setCore(core);
}

} // namespace

/// What these classes have registered is there, although no file of the editor knows them.
TEST_F(ksScriptRegistryTest, GivesContainersTheObjectOfTheNearestClass)
{
    giveCore(root, osg::DirectionalLight::create());
    giveCore(child, osg::PointLight::create());
    EXPECT_EQ(run("print(scene.root.core.kind(), scene.find('Child').core.kind(), 'kind' in scene.root);"),
              "sun lamp false\n");
}

TEST_F(ksScriptRegistryTest, GivesContainersTheirParts)
{
    giveCore(root, osg::DirectionalLight::create());
    const std::string id = std::to_string(root->getCore().getFieldContainerId());
    EXPECT_EQ(run("var core = scene.root.core;"
                  "print(core.socket.owner(), core.socket === core.socket, 'socket' in scene.root);"),
              id + " true false\n");
    EXPECT_EQ(errorOf("\nscene.root.core.socket = 5;"),
              ":2: TypeError: Cannot assign to read-only property \"socket\"");
}

TEST_F(ksScriptRegistryTest, GivesScriptsTheirGlobals)
{
    EXPECT_EQ(run("print(almanac.steps()); scene.root.set('travMask', 1); print(almanac.steps());"),
              "0\nstep 1: Set travMask of 'Root': Node 'Root' travMask 4294967295 -> 1\n1\n");
}
