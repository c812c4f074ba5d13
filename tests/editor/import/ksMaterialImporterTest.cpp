// SPDX-License-Identifier: MIT
#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksModelFile.h>
#include <tests/editor/ksEditorFixture.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>

#include <QImage>
#include <assimp/scene.h>

#include <memory>
#include <vector>

namespace {

using testing::ElementsAre;

/// A model whose one material is described by lines of an MTL file.
class ksMaterialImporterTest : public testing::Test
{
protected:
    ksMaterialImporterTest() { QImage(1, 1, QImage::Format_RGB32).save(folder.path("dot.png")); }

    osg::MaterialPtr import(const std::string &lines)
    {
        folder.write("m.mtl", "newmtl one\n" + lines);
        importer.reset();
        model = std::make_unique<ksModelFile>(
            folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl one\nf 1 2 3\n"));
        importer = std::make_unique<ksMaterialImporter>(*model, [](const QString &) {});
        return importer->material(index());
    }

    unsigned int index() const { return model->scene().mMeshes[0]->mMaterialIndex; }

    static std::vector<std::string> componentsOf(const osg::MaterialPtr &material)
    {
        std::vector<std::string> names;
        if (const auto layered = osg::UberMaterialPtr::dcast(material))
            for (const osg::ColorComponentPtr &component : layered->getColorComponentData())
                names.push_back(osg::getName(component) +
                                std::string(component->getImage() != osg::NullFC ? " image" : ""));
        return names;
    }

    ksTestFolder folder;
    std::unique_ptr<ksModelFile> model;
    std::unique_ptr<ksMaterialImporter> importer;
};

} // namespace

TEST_F(ksMaterialImporterTest, MakesALayerOfEachColour)
{
    const auto material = osg::UberMaterialPtr::dcast(import("Kd 1 0.5 0\nKs 0.25 0.25 0.25\nKe 0 0 1\n"));
    EXPECT_THAT(componentsOf(material), ElementsAre("base", "gloss", "glow"));
    EXPECT_EQ(material->getColorComponentData(0)->getColor(), osg::Vec3f(1, 0.5F, 0));
    EXPECT_EQ(material->getColorComponentData(1)->getColor(), osg::Vec3f(0.25F, 0.25F, 0.25F));
    EXPECT_EQ(material->getColorComponentData(2)->getColor(), osg::Vec3f(0, 0, 1));
    EXPECT_EQ(material->getColorComponentData(2)->getWeight(), 1);
    EXPECT_NE(material->getComponentSettings(), osg::NullFC);
}

TEST_F(ksMaterialImporterTest, LeavesOutLayersThatAreBlack)
{
    EXPECT_THAT(componentsOf(import("Kd 0 0 0\nKs 0 0 0\nKe 0 0 0\n")), ElementsAre("base"));
}

TEST_F(ksMaterialImporterTest, GivesLayersTheirTextures)
{
    EXPECT_THAT(componentsOf(import("Kd 1 1 1\nKs 1 1 1\nKe 0 0 0\n"
                                    "map_Kd dot.png\nmap_Ks dot.png\nmap_Ke dot.png\n")),
                ElementsAre("base image", "gloss image", "glow image"));
}

TEST_F(ksMaterialImporterTest, MakesOnePhysicallyBasedMaterialOfAPlainColour)
{
    const auto material =
        osg::UBRDFMaterialPtr::dcast(import("Kd 1 0.5 0\nKs 0 0 0\nPr 0.25\nPm 0.75\nNi 1.25\n"));
    ASSERT_NE(material, osg::NullFC);
    EXPECT_STREQ(osg::getName(material), "one");
    EXPECT_EQ(material->getBaseColor(), osg::Vec3f(1, 0.5F, 0));
    EXPECT_EQ(material->getRoughness(), 0.25F);
    EXPECT_EQ(material->getMetalness(), 0.75F);
    EXPECT_EQ(material->getRefractionIndex(), 1.25F);
}

TEST_F(ksMaterialImporterTest, LayersPhysicallyBasedMaterialsThatAreMore)
{
    EXPECT_THAT(componentsOf(import("Kd 1 1 1\nKs 0 0 0\nPr 0.25\nmap_Kd dot.png\n")),
                ElementsAre("base image"));
    EXPECT_THAT(componentsOf(import("Kd 1 1 1\nKs 0 0 0\nPr 0.25\nKe 1 1 1\n")), ElementsAre("base", "glow"));
}

TEST_F(ksMaterialImporterTest, ReadsTheOpacity)
{
    import("Kd 1 1 1\nd 0.25\n");
    EXPECT_EQ(importer->opacity(index()), 0.25F);
    import("Kd 1 1 1\n");
    EXPECT_EQ(importer->opacity(index()), 1);
}
