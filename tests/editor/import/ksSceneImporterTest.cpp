// SPDX-License-Identifier: MIT
#include <editor/export/ksSceneExporter.h>
#include <editor/import/ksSceneImporter.h>
#include <tests/editor/ksEditorFixture.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGTransform.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ksSceneImporterTest : public testing::Test
{
protected:
    osg::NodeRefPtr load(const QString &path)
    {
        return ksSceneImporter([this](const QString &text) { warnings.push_back(text.toStdString()); })
            .load(path);
    }

    static std::vector<std::string> childNames(const osg::NodePtr &node)
    {
        std::vector<std::string> names;
        for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
            names.emplace_back(osg::getName(node->getChild(i)));
        return names;
    }

    /// More than Assimp has room for, in characters of two bytes.
    static std::string longName()
    {
        std::string name;
        for (int i = 0; i < 800; ++i)
            name += "\xc3\xbc";
        return name;
    }

    std::vector<std::string> warnings;
};

/// The demo model, loaded.
class ksRoomTest : public ksSceneImporterTest
{
protected:
    osg::NodePtr find(const char *name) const { return ksFindNode(room, name); }

    osg::Matrix matrixOf(const char *name) const
    {
        return osg::TransformPtr::dcast(find(name)->getCore())->getMatrix();
    }

    osg::ksMeshPtr meshOf(const char *name) const
    {
        const osg::NodePtr node = find(name);
        return osg::ksMeshPtr::dcast(node->getChild(node->getNChildren() - 1)->getCore());
    }

    template <class PtrT>
    PtrT materialOf(const char *name) const
    {
        return PtrT::dcast(meshOf(name)->getMaterial());
    }

    osg::ColorComponentPtr componentOf(const char *name, osg::UInt32 index = 0) const
    {
        return materialOf<osg::UberMaterialPtr>(name)->getColorComponentData(index);
    }

    osg::ImagePtr imageOf(const char *name) const { return componentOf(name)->getImage(); }

    osg::UberLightPtr lightOf(const char *name) const
    {
        return osg::UberLightPtr::dcast(find(name)->getChild(0)->getCore());
    }

    static osg::Matrix turned(const osg::Vec3f &translation, const osg::Vec3f &axis, float degrees,
                              const osg::Vec3f &scale = {1, 1, 1})
    {
        const float half = degrees * 3.14159265F / 360;
        osg::Matrix matrix;
        const osg::Vec3f imaginary = axis * std::sin(half);
        matrix.setTransform(
            translation, osg::Quaternion(imaginary.x(), imaginary.y(), imaginary.z(), std::cos(half)), scale);
        return matrix;
    }

    osg::NodeRefPtr room{load(ksRoomFile())};
};

} // namespace

TEST_F(ksRoomTest, KeepsNamesAndHierarchy)
{
    EXPECT_STREQ(osg::getName(room.get()), "Room");
    EXPECT_THAT(childNames(room), ElementsAre("Floor", "Ceiling", "Walls", "Rug", "Table", "Chair", "Lamp",
                                              "CeilingSpot", "Sun", "Camera"));
    EXPECT_THAT(childNames(find("Table")), ElementsAre("Legs", "Vase", "Book", "TableTop"));
    EXPECT_THAT(childNames(find("Legs")),
                ElementsAre("LegFrontLeft", "LegFrontRight", "LegBackLeft", "LegBackRight"));
    EXPECT_THAT(childNames(find("LampBulb")), ElementsAre("LampBulb light"));
    EXPECT_EQ(find("Flower")->getParent(), find("Vase"));
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(ksRoomTest, KeepsMatrices)
{
    constexpr float Tolerance = 1e-5F;
    EXPECT_EQ(matrixOf("Room"), osg::Matrix());
    EXPECT_TRUE(matrixOf("Table").equals(turned({0.2F, 0.01F, 0.3F}, {0, 1, 0}, 0), Tolerance));
    EXPECT_TRUE(matrixOf("Chair").equals(turned({0.1F, 0.01F, 1.1F}, {0, 1, 0}, 205), Tolerance));
    EXPECT_TRUE(matrixOf("Rug").equals(turned({0.2F, 0, 0.3F}, {0, 1, 0}, 12, {1.2F, 1, 0.9F}), Tolerance));
    EXPECT_TRUE(
        matrixOf("Vase").equals(turned({0.3F, 0.74F, -0.1F}, {0, 1, 0}, 0, {1, 1.25F, 1}), Tolerance));
    EXPECT_TRUE(matrixOf("Flower").equals(turned({0, 0.2F, 0}, {0, 0, 1}, -14), Tolerance));
}

TEST_F(ksRoomTest, KeepsGeometry)
{
    const osg::ksMeshPtr floor = meshOf("Floor");
    EXPECT_EQ(floor->getPositions().size(), 24u);
    EXPECT_EQ(floor->getNormals().size(), 24u);
    EXPECT_EQ(floor->getTexCoords().size(), 24u);
    EXPECT_EQ(floor->getIndices().size(), 36u);
    EXPECT_EQ(floor->getCornersPerFace(), 3);
    float highest = -1;
    for (const osg::Pnt3f &position : floor->getPositions()) {
        EXPECT_EQ(std::abs(position.x()), 2.5F);
        highest = std::max(highest, position.y());
    }
    EXPECT_EQ(highest, 0);
}

TEST_F(ksRoomTest, SharesMeshesMaterialsAndImages)
{
    const osg::ksMeshPtr leg = meshOf("LegFrontLeft");
    EXPECT_EQ(meshOf("LegBackRight"), leg);
    EXPECT_EQ(leg->getParents().size(), 4u);
    EXPECT_EQ(meshOf("Backrest")->getMaterial(), leg->getMaterial());
    EXPECT_EQ(imageOf("Ceiling"), imageOf("EastWall"));
}

TEST_F(ksRoomTest, KeepsPlainMaterials)
{
    const auto walnut = materialOf<osg::UBRDFMaterialPtr>("Table");
    ASSERT_NE(walnut, osg::NullFC);
    EXPECT_STREQ(osg::getName(walnut), "Walnut");
    EXPECT_EQ(walnut->getBaseColor(), osg::Vec3f(0.32F, 0.19F, 0.1F));
    EXPECT_EQ(walnut->getRoughness(), 0.5F);
    EXPECT_EQ(walnut->getMetalness(), 0);
    EXPECT_EQ(walnut->getRefractionIndex(), 1.5F);
    EXPECT_EQ(materialOf<osg::UBRDFMaterialPtr>("LampPole")->getMetalness(), 1);
    EXPECT_EQ(ksSettingsOf(find("WindowPane"))->getOpacity(), 0.25F);
    EXPECT_EQ(ksSettingsOf(find("TableTop"))->getOpacity(), 1);
}

TEST_F(ksRoomTest, KeepsLayersOfMaterials)
{
    const auto cloth = materialOf<osg::UberMaterialPtr>("Seat");
    ASSERT_NE(cloth, osg::NullFC);
    EXPECT_STREQ(osg::getName(cloth), "Fabric");
    ASSERT_EQ(cloth->getColorComponentData().size(), 1u);
    EXPECT_STREQ(osg::getName(componentOf("Seat")), "base");
    EXPECT_EQ(componentOf("Seat")->getColor(), osg::Vec3f(0.9F, 0.9F, 0.9F));
    EXPECT_EQ(cloth->getBlendedColor(), osg::Vec3f(0.9F, 0.9F, 0.9F));
    EXPECT_NE(imageOf("Seat"), osg::NullFC);

    // It shines by itself, which is a layer of its own.
    ASSERT_EQ(materialOf<osg::UberMaterialPtr>("LampShade")->getColorComponentData().size(), 2u);
    EXPECT_EQ(imageOf("LampShade"), osg::NullFC);
    EXPECT_STREQ(osg::getName(componentOf("LampShade", 1)), "glow");
    EXPECT_EQ(componentOf("LampShade", 1)->getColor(), osg::Vec3f(0.6F, 0.5F, 0.25F));
}

TEST_F(ksRoomTest, KeepsHowTexturesAreLaidOn)
{
    const osg::ColorComponentSettingsPtr cloth =
        materialOf<osg::UberMaterialPtr>("Seat")->getComponentSettings();
    EXPECT_EQ(cloth->getMappingScale(), osg::Vec2f(2, 3));
    EXPECT_EQ(cloth->getMappingRotation(), 0);
    // The model scales from the upper left corner, and then moves that by (0.25, 0.125).
    EXPECT_FLOAT_EQ(cloth->getMappingOffset()[0], 0.25F);
    EXPECT_FLOAT_EQ(3 + cloth->getMappingOffset()[1], 1 - 0.125F);
    const osg::ColorComponentSettingsPtr planks =
        materialOf<osg::UberMaterialPtr>("Floor")->getComponentSettings();
    EXPECT_EQ(planks->getMappingScale(), osg::Vec2f(1, 1));
    EXPECT_EQ(planks->getMappingOffset(), osg::Vec2f(0, 0));
}

TEST_F(ksRoomTest, KeepsImages)
{
    const osg::ImagePtr planks = imageOf("Floor");
    EXPECT_EQ(planks->getName(), "planks.png");
    EXPECT_EQ(planks->getWidth(), 64);
    EXPECT_EQ(planks->getHeight(), 64);
    const osg::MFUInt8 &pixels = planks->getPixel();
    ASSERT_EQ(pixels.size(), 64u * 64 * 3);
    // The seam along the upper edge is the last line.
    EXPECT_THAT((std::vector<int>{pixels[64 * 63 * 3], pixels[64 * 63 * 3 + 1], pixels[64 * 63 * 3 + 2]}),
                ElementsAre(74, 48, 28));
    EXPECT_EQ(imageOf("Picture")->getHeight(), 48);
    // The lower left of the cloth is dark.
    const osg::MFUInt8 &cloth = imageOf("Seat")->getPixel();
    EXPECT_THAT((std::vector<int>{cloth[0], cloth[1], cloth[2]}), ElementsAre(158, 52, 48));
}

TEST_F(ksRoomTest, KeepsLights)
{
    const osg::UberLightPtr bulb = lightOf("LampBulb");
    ASSERT_NE(bulb, osg::NullFC);
    EXPECT_TRUE(bulb->getDiffuse().equals(osg::Vec3f(1, 0.8F, 0.5F), 1e-6F));
    EXPECT_EQ(bulb->getGlossy(), bulb->getDiffuse());
    EXPECT_EQ(bulb->getIntensity(), 40);
    EXPECT_EQ(bulb->getAttenuation(), osg::UberLight::Quadratic);
    EXPECT_EQ(bulb->getConeAngle(), 360);

    const osg::UberLightPtr spot = lightOf("CeilingSpot");
    ASSERT_NE(spot, osg::NullFC);
    EXPECT_FLOAT_EQ(spot->getIntensity(), 120);
    EXPECT_FLOAT_EQ(spot->getConeAngle(), 28.6478898F);
    EXPECT_FLOAT_EQ(spot->getPenumbraAngle(), 28.6478898F);

    const osg::UberLightPtr sun = lightOf("Sun");
    ASSERT_NE(sun, osg::NullFC);
    EXPECT_TRUE(sun->getDiffuse().equals(osg::Vec3f(1, 0.95F, 0.85F), 1e-6F));
    EXPECT_EQ(sun->getIntensity(), 3);
    EXPECT_EQ(sun->getAttenuation(), osg::UberLight::None);
    EXPECT_EQ(sun->getConeAngle(), 180);
}

TEST_F(ksRoomTest, ReadsSettingsFromTheModel)
{
    const osg::ksNodeSettingsPtr table = ksSettingsOf(find("Table"));
    EXPECT_EQ(table->getLayer(), 2);
    EXPECT_EQ(table->getLodBias(), -3);
    EXPECT_EQ(table->getRenderOrder(), -200);
    EXPECT_EQ(table->getSortKey(), -70000);
    EXPECT_EQ(table->getUserFlags(), 4294967301u);
    EXPECT_EQ(table->getOpacity(), 0.75F);
    EXPECT_EQ(table->getComment(), "oiled walnut");
    EXPECT_EQ(ksSettingsOf(find("Clock"))->getRevision(), 9007199254740993);
    EXPECT_TRUE(ksSettingsOf(find("Floor"))->getLocked());
    ksContainers::visitNodes(room,
                             [](const osg::NodePtr &node) { EXPECT_NE(ksSettingsOf(node), osg::NullFC); });
}

TEST_F(ksSceneImporterTest, ReleasesEverythingWithTheRoot)
{
    const std::ptrdiff_t before = ksLivingContainers();
    load(ksRoomFile());
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksSceneImporterTest, LeavesNothingBehindWhenAFileCannotBeRead)
{
    const std::ptrdiff_t before = ksLivingContainers();
    EXPECT_NE(ksErrorOf([this] { load(ksRoomFile("planks.png")); }), "");
    EXPECT_EQ(ksLivingContainers(), before);
}

TEST_F(ksSceneImporterTest, WarnsOfMissingTextures)
{
    const ksTestFolder folder;
    folder.write("m.mtl", "newmtl wood\nKd 0.5 0.25 0\nmap_Kd wood.png\n");
    const osg::NodeRefPtr root =
        load(folder.write("m.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl wood\nf 1 2 3\n"));
    EXPECT_THAT(warnings, ElementsAre("texture wood.png: no such file"));
    const osg::NodePtr owner = root->getChild(0);
    const osg::ksMeshPtr mesh = osg::ksMeshPtr::dcast(owner->getChild(0)->getCore());
    ASSERT_NE(mesh, osg::NullFC);
    const auto material = osg::UberMaterialPtr::dcast(mesh->getMaterial());
    ASSERT_NE(material, osg::NullFC);
    EXPECT_EQ(material->getColorComponentData(0)->getColor(), osg::Vec3f(0.5F, 0.25F, 0));
    EXPECT_EQ(material->getColorComponentData(0)->getImage(), osg::NullFC);
}

/// The light of each node, though nodes have one name, and some share a light.
TEST_F(ksSceneImporterTest, KeepsLightsOfNodesWithTheSameName)
{
    const ksTestFolder folder;
    const osg::NodeRefPtr root(load(folder.write("lamps.gltf", R"({
"asset": { "version": "2.0" },
"extensionsUsed": ["KHR_lights_punctual"],
"extensions": { "KHR_lights_punctual": { "lights": [
    { "type": "point", "intensity": 2 }, { "type": "point", "intensity": 3 }, { "type": "spot", "spot": {}, "intensity": 4 }] } },
"nodes": [
    { "name": "Lamp", "extensions": { "KHR_lights_punctual": { "light": 2 } } },
    { "name": "Lamp", "extensions": { "KHR_lights_punctual": { "light": 0 } } },
    { "name": "Lamp" },
    { "name": "Lamp", "extensions": { "KHR_lights_punctual": { "light": 1 } } },
    { "name": "Torch", "extensions": { "KHR_lights_punctual": { "light": 0 } } }],
"scenes": [{ "nodes": [0, 1, 2, 3, 4] }],
"scene": 0
})")));
    EXPECT_THAT(warnings, IsEmpty());
    std::vector<float> intensities;
    for (osg::UInt32 i = 0; i < root->getNChildren(); ++i) {
        const osg::NodePtr node = root->getChild(i);
        const bool isLit = node->getNChildren() > 0;
        EXPECT_EQ(childNames(node).size(), isLit ? 1u : 0u);
        intensities.push_back(isLit ? osg::UberLightPtr::dcast(node->getChild(0)->getCore())->getIntensity()
                                    : 0);
    }
    EXPECT_THAT(intensities, ElementsAre(4, 2, 0, 3, 2));
}

/// A format whose lights have nothing but names.
TEST_F(ksSceneImporterTest, TakesLightsOfOneNameInOrder)
{
    const ksTestFolder folder;
    const auto torch = [](int id) {
        const std::string number = std::to_string(id);
        return "    NodeAttribute: 1" + number +
               ", \"NodeAttribute::Torch\", \"Light\" {\n    }\n    Model: 2" + number +
               ", \"Model::Torch\", \"Light\" {\n        Version: 232\n    }\n";
    };
    const auto connection = [](int id) {
        const std::string number = std::to_string(id);
        return "    C: \"OO\",2" + number + ",0\n    C: \"OO\",1" + number + ",2" + number + "\n";
    };
    const osg::NodeRefPtr root(load(
        folder.write("torches.fbx", "; FBX 7.4.0 project file\nFBXHeaderExtension: {\n    FBXHeaderVersion: "
                                    "1003\n    FBXVersion: 7400\n}\nObjects: {\n" +
                                        torch(0) + torch(1) + torch(2) + "}\nConnections: {\n" +
                                        connection(0) + connection(1) + connection(2) + "}\n")));
    int lights = 0;
    ksContainers::visitNodes(root, [&lights](const osg::NodePtr &node) {
        lights += osg::UberLightPtr::dcast(node->getCore()) != osg::NullFC ? 1 : 0;
    });
    EXPECT_EQ(lights, 3);
    for (const std::string &warning : warnings)
        EXPECT_THAT(warning, testing::Not(testing::HasSubstr("light")));
}

TEST_F(ksSceneImporterTest, KeepsNamesOfAnyLength)
{
    const ksTestFolder folder;
    const std::string head = R"({ "asset": { "version": "2.0" }, "scene": 0, "scenes": [{ "nodes": [0] }],
        "nodes": [{ "name": ")";
    const osg::NodeRefPtr root(load(folder.write("long.gltf", head + longName() + "\" }] }")));
    EXPECT_EQ(osg::getName(root.get()), longName());
    EXPECT_THAT(warnings, IsEmpty());
}

/// Of most formats the reader cuts them, but a character is left out as a whole.
TEST_F(ksSceneImporterTest, WarnsOfNamesThatTheReaderCuts)
{
    const ksTestFolder folder;
    const std::string name = longName();
    const osg::NodeRefPtr root(load(
        folder.write("long.bvh", "HIERARCHY\nROOT " + name +
                                     "\n{\n OFFSET 0 0 0\n CHANNELS 0\n End Site\n {\n  OFFSET 0 1 0\n }\n}\n"
                                     "MOTION\nFrames: 1\nFrame Time: 0.1\n\n")));
    EXPECT_EQ(osg::getName(root.get()), name.substr(0, 1022));
    EXPECT_THAT(warnings, ElementsAre("2 of the names are longer than the reader has room for, and cut"));
    warnings.clear();
    const osg::NodeRefPtr meshed(
        load(folder.write("long.gltf", R"({"asset": {"version": "2.0"}, "materials": [{"name": ")" + name +
                                           R"("}],
        "buffers": [{"byteLength": 36, "uri": "data:application/octet-stream;base64,)" +
                                           std::string(48, 'A') +
                                           R"("}], "bufferViews": [{"buffer": 0, "byteLength": 36}],
        "accessors": [{"bufferView": 0, "componentType": 5126, "count": 3, "type": "VEC3"}],
        "meshes": [{"primitives": [{"attributes": {"POSITION": 0}, "material": 0}], "name": ")" +
                                           name + R"("}],
        "nodes": [{"mesh": 0}], "scenes": [{"nodes": [0]}], "scene": 0})")));
    EXPECT_EQ(osg::getName(meshed->getChild(0)), name) << "the editor finds names of meshes, too";
    EXPECT_THAT(warnings, ElementsAre("1 of the names are longer than the reader has room for, and cut"));
}

/// Of a file that comes with all that the editor saves, too.
TEST_F(ksSceneImporterTest, LeavesNothingWhenBuildingIsCancelled)
{
    const ksTestFolder folder;
    const QString saved = folder.path("saved.gltf");
    ksSceneExporter::save(load(ksRoomFile()).get(), saved);
    const std::ptrdiff_t before = ksLivingContainers();
    for (const QString &path : {ksRoomFile(), saved}) {
        std::vector<double> shares;
        const auto cancelAfter = [&](std::size_t most) {
            shares.clear();
            ksSceneImporter([](const QString &) {}).load(path, [&](double done) {
                shares.push_back(done);
                return shares.size() <= most;
            });
        };
        cancelAfter(std::numeric_limits<std::size_t>::max());
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
        EXPECT_EQ(shares.back(), 1);
        const std::size_t all = shares.size();
        for (const std::size_t most : {all - 1, all - 5, all - 20}) {
            EXPECT_THROW(cancelAfter(most), ksCancelled);
            EXPECT_EQ(shares.size(), most + 1) << "asked no more";
            EXPECT_GT(shares.back(), 0.6) << "while the scene is built";
            EXPECT_EQ(ksLivingContainers(), before);
        }
    }
}

TEST_F(ksSceneImporterTest, CountsWhatIsLeftOut)
{
    std::vector<std::string> leftOut;
    const ksSceneImporter importer(
        [](const QString &) {}, [&leftOut](const QString &what) { leftOut.push_back(what.toStdString()); });
    importer.load(ksRoomFile());
    EXPECT_THAT(leftOut, ElementsAre("1 camera"));
    leftOut.clear();
    const ksTestFolder folder;
    importer.load(folder.write("triangle.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"));
    EXPECT_THAT(leftOut, IsEmpty());
}

/// Lights of this format shine down the y axis of their nodes.
TEST_F(ksSceneImporterTest, TurnsLightsThatShineElsewhere)
{
    const ksTestFolder folder;
    const osg::NodeRefPtr root(load(folder.write("torch.fbx", R"(; FBX 7.4.0 project file
FBXHeaderExtension: {
    FBXHeaderVersion: 1003
    FBXVersion: 7400
}
Objects: {
    NodeAttribute: 10, "NodeAttribute::Torch", "Light" {
    }
    Model: 20, "Model::Torch", "Light" {
        Version: 232
    }
}
Connections: {
    C: "OO",20,0
    C: "OO",10,20
}
)")));
    const osg::NodePtr place = ksFindNode(root, "Torch light place");
    ASSERT_NE(place, osg::NullFC);
    EXPECT_THAT(childNames(place), ElementsAre("Torch light"));
    EXPECT_NE(osg::UberLightPtr::dcast(place->getChild(0)->getCore()), osg::NullFC);
    const osg::Matrix matrix = osg::TransformPtr::dcast(place->getCore())->getMatrix();
    EXPECT_TRUE(osg::Vec3f(-matrix[2][0], -matrix[2][1], -matrix[2][2]).equals(osg::Vec3f(0, -1, 0), 1e-6F));
}
