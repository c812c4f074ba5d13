// SPDX-License-Identifier: MIT
#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksModelFile.h>
#include <tests/editor/ksEditorFixture.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>

#include <QImage>
#include <assimp/scene.h>

#include <cmath>
#include <memory>
#include <utility>
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

/// In glTF coordinates are scaled, turned against the clock and moved, and start at the top.
TEST_F(ksMaterialImporterTest, LaysTexturesTheSameWay)
{
    model = std::make_unique<ksModelFile>(
        folder.write("turned.gltf", R"({"asset": {"version": "2.0"}, "images": [{"uri": "dot.png"}],
        "textures": [{"source": 0}], "materials": [{"pbrMetallicRoughness": {"baseColorTexture": {"index": 0,
            "extensions": {"KHR_texture_transform":
                {"offset": [0.25, 0.125], "rotation": 0.5235987755982988, "scale": [2, 3]}}}}}],
        "buffers": [{"byteLength": 36, "uri": "data:application/octet-stream;base64,)" +
                                        std::string(48, 'A') + R"("}],
        "bufferViews": [{"buffer": 0, "byteLength": 36}],
        "accessors": [{"bufferView": 0, "componentType": 5126, "count": 3, "type": "VEC3"}],
        "meshes": [{"primitives": [{"attributes": {"POSITION": 0}, "material": 0}]}],
        "nodes": [{"mesh": 0}], "scenes": [{"nodes": [0]}], "scene": 0,
        "extensionsUsed": ["KHR_texture_transform"]})"));
    importer = std::make_unique<ksMaterialImporter>(*model, [](const QString &) {});
    const osg::MaterialPtr material = importer->material(index());
    const osg::ColorComponentSettingsPtr settings =
        osg::UberMaterialPtr::dcast(material)->getComponentSettings();
    EXPECT_EQ(settings->getMappingScale(), osg::Vec2f(2, 3));
    EXPECT_FLOAT_EQ(settings->getMappingRotation(), 30);
    const float half = 0.5F;
    const float root = std::sqrt(0.75F);
    for (const auto &[u, v] : {std::pair(0.0F, 0.0F), std::pair(1.0F, 0.0F), std::pair(0.3F, 0.8F)}) {
        const float down = 3 * (1 - v);
        EXPECT_NEAR(root * 2 * u - half * 3 * v + settings->getMappingOffset()[0],
                    root * 2 * u + half * down + 0.25F, 1e-5F);
        EXPECT_NEAR(half * 2 * u + root * 3 * v + settings->getMappingOffset()[1],
                    1 - (root * down - half * 2 * u + 0.125F), 1e-5F);
    }
}

TEST_F(ksMaterialImporterTest, ReadsTheOpacity)
{
    import("Kd 1 1 1\nd nan\n");
    EXPECT_EQ(importer->opacity(index()), 1);
    import("Kd 1 1 1\nd 0.25\n");
    EXPECT_EQ(importer->opacity(index()), 0.25F);
    import("Kd 1 1 1\n");
    EXPECT_EQ(importer->opacity(index()), 1);
}
