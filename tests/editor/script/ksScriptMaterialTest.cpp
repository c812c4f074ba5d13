// SPDX-License-Identifier: MIT
#include <tests/editor/script/ksScriptFixture.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>

#include <QImage>

namespace {

/// "Root" with two children: "Cloth", a mesh with two components, the second of which has an image; and
/// "Metal", a mesh with a physically based material.
class ksMaterialScene : public ksEditorFixture
{
protected:
    ksMaterialScene()
    {
        CPEditAll(image);
        CPEditAll(second);
        CPEditAll(cloth);
        image->setName("dots.png");
        second->setImage(image);
        cloth->addColorComponent(first);
        cloth->addColorComponent(second);
        cloth->setComponentSettings(settings);
        addMesh("Cloth", cloth);
        addMesh("Metal", metal);
    }

    void addMesh(const char *name, const osg::MaterialPtr &material)
    {
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        CPEditAll(mesh);
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        mesh->setMaterial(material);
        osg::setName(material, name);
        root->addChild(ksContainers::createNode(name, mesh));
    }

    const osg::ImagePtr image = osg::Image::create();
    const osg::ColorComponentPtr first = osg::ColorComponent::create();
    const osg::ColorComponentPtr second = osg::ColorComponent::create();
    const osg::ColorComponentSettingsPtr settings = osg::ColorComponentSettings::create();
    const osg::UberMaterialPtr cloth = osg::UberMaterial::create();
    const osg::UBRDFMaterialPtr metal = osg::UBRDFMaterial::create();
};

constexpr const char *Prelude =
    "var cloth = scene.find('Cloth').material, metal = scene.find('Metal').material;";

class ksScriptMaterialTest : public ksScriptFixture<ksMaterialScene>
{
protected:
    std::string runOnMaterials(const std::string &script) { return printed(Prelude + script); }

    void expectError(const std::string &script, const std::string &error)
    {
        expectErrorAfter(Prelude, script, error);
    }
};

} // namespace

TEST_F(ksScriptMaterialTest, EditsComponentsSoThatTheMaterialTakesNotice)
{
    runOnMaterials("cloth.setComponent(0, 'color', [0, 0.5, 1]); cloth.setComponent(1, 'weight', 0);"
                   "cloth.setSettings('mappingRotation', 45); cloth.setSettings('planarProjection', true);");
    EXPECT_EQ(stack.count(), 4);
    EXPECT_EQ(cloth->getBlendedColor(), osg::Vec3f(0, 0.5F, 1));
    EXPECT_EQ(settings->getMappingRotation(), 45);
    EXPECT_TRUE(settings->getPlanarProjection());
    EXPECT_EQ(runOnMaterials("print(cloth.components.length, cloth.settings.get('mappingRotation'));"),
              "2 45\n");
    run("while (history.index > 0) history.undo();");
    EXPECT_EQ(cloth->getBlendedColor(), osg::Vec3f(1, 1, 1));
}

TEST_F(ksScriptMaterialTest, DragsAsOneStep)
{
    runOnMaterials("cloth.dragComponent(0, 'color', [[0, 0, 0], [0, 0, 0.5]]);"
                   "cloth.dragComponent(1, 'weight', [0.5, 0.25, 0.125]);");
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(second->getWeight(), 0.125F);
    run("history.undo(); history.undo();");
    EXPECT_EQ(first->getColor(), osg::Vec3f(1, 1, 1));
    EXPECT_EQ(second->getWeight(), 1);
}

TEST_F(ksScriptMaterialTest, EditsAllComponentsAtOnce)
{
    runOnMaterials("cloth.setAllComponents('enabled', false); cloth.setAllComponents('color', [1, 0, 0.5]);");
    EXPECT_EQ(stack.count(), 2);
    EXPECT_FALSE(first->getEnabled() || second->getEnabled());
    EXPECT_EQ(first->getColor(), osg::Vec3f(1, 0, 0.5F));
    EXPECT_EQ(second->getColor(), osg::Vec3f(1, 0, 0.5F));
}

TEST_F(ksScriptMaterialTest, SwapsImages)
{
    runOnMaterials("cloth.setImage(0, cloth.components[1].image); cloth.setImage(1, null);");
    EXPECT_EQ(first->getImage(), image);
    EXPECT_EQ(second->getImage(), osg::NullFC);
    run("history.undo(); history.undo();");
    EXPECT_EQ(first->getImage(), osg::NullFC);
    EXPECT_EQ(second->getImage(), image);
}

/// Paths start where the script is.
TEST_F(ksScriptMaterialTest, TakesImagesFromFiles)
{
    QImage pixels(2, 1, QImage::Format_RGB888);
    pixels.fill(Qt::red);
    ASSERT_TRUE(pixels.save(folder.path("red.png")));
    runOnMaterials("cloth.setImage(0, 'red.png');");
    ASSERT_NE(first->getImage(), osg::NullFC);
    EXPECT_EQ(first->getImage()->getWidth(), 2);
    EXPECT_EQ(first->getImage()->getName(), "red.png");
    // The same image again is no step.
    runOnMaterials("cloth.setImage(0, 'red.png');");
    EXPECT_EQ(stack.count(), 1);
    run("history.undo();");
    EXPECT_EQ(first->getImage(), osg::NullFC);
    stack.clear();
    EXPECT_THAT(errorOf(std::string(Prelude) + "cloth.setImage(0, 'missing.png');"),
                testing::ContainsRegex(":1: Error: .*/missing.png: File not found"));
}

TEST_F(ksScriptMaterialTest, GivesMeshesMaterials)
{
    runOnMaterials("scene.find('Metal').set('material', cloth, 'Dress'); print(scene.find('Metal').material "
                   "=== cloth);");
    EXPECT_EQ(osg::ksMeshPtr::dcast(ksFindNode(root, "Metal")->getCore())->getMaterial(), cloth);
    EXPECT_EQ(stack.undoText(), QStringLiteral("Dress"));
    run("history.undo(); scene.find('Metal').material = null; history.undo();");
    EXPECT_EQ(osg::ksMeshPtr::dcast(ksFindNode(root, "Metal")->getCore())->getMaterial(), metal);
    EXPECT_EQ(errorOf("scene.find('Child').material = null;"),
              ":1: Error: " + ksContainers::label(child).toStdString() + " has no mesh");
}

TEST_F(ksScriptMaterialTest, EditsComponentsWithoutTheNoticeOfTheMaterial)
{
    runOnMaterials("cloth.setComponentQuietly(0, 'color', [0, 0.5, 1]);");
    EXPECT_EQ(first->getColor(), osg::Vec3f(0, 0.5F, 1));
    EXPECT_EQ(cloth->getBlendedColor(), osg::Vec3f(1, 1, 1));
}

TEST_F(ksScriptMaterialTest, SetsEnvironments)
{
    EXPECT_EQ(
        runOnMaterials("print(metal.environment); metal.environment = cloth; print(metal.environment.name);"),
        "null\nCloth\n");
    EXPECT_EQ(metal->getEnvironment(), cloth);
    run("history.undo();");
    EXPECT_EQ(metal->getEnvironment(), osg::NullFC);
}

TEST_F(ksScriptMaterialTest, SayWhatIsWrong)
{
    const std::string label = ksContainers::label(cloth).toStdString();
    expectError("cloth.setComponent(2, 'weight', 1);", label + " has no component 2");
    expectError("cloth.setComponent(-1, 'weight', 1);", label + " has no component -1");
    expectError("cloth.setComponent(0, 'color', 'red');",
                "'color' is an array [x, y, z] of numbers, not 'red'");
    expectError("cloth.setComponent(0, 'weight', 'all');", "'weight' is a number, not 'all'");
    expectError("cloth.setImage(0, cloth);", label + " is no image");
    expectError("metal.environment = null;", "nothing is no material");
    expectError("cloth.setAllComponents('shine', 1);",
                ksContainers::label(first).toStdString() + " has no field 'shine' that can be edited");
}
