// SPDX-License-Identifier: MIT
#include "ksEditorFixture.h"

#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGSpotLight.h>
#include <OpenSG/OSGTransform.h>
#include <ksSceneImporter.h>

#include <cmath>
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

    osg::SimpleMaterialPtr materialOf(const char *name) const
    {
        return osg::SimpleMaterialPtr::dcast(meshOf(name)->getMaterial());
    }

    osg::ImagePtr imageOf(const char *name) const
    {
        return osg::SimpleTexturedMaterialPtr::dcast(materialOf(name))->getImage();
    }

    template <class PtrT>
    PtrT lightOf(const char *name) const
    {
        return PtrT::dcast(find(name)->getChild(0)->getCore());
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

    osg::NodeRefPtr room = load(ksRoomFile());
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
    EXPECT_EQ(materialOf("Backrest"), materialOf("LegFrontLeft"));
    EXPECT_EQ(imageOf("Ceiling"), imageOf("EastWall"));
}

TEST_F(ksRoomTest, KeepsMaterials)
{
    const osg::SimpleMaterialPtr walnut = materialOf("Table");
    EXPECT_STREQ(osg::getName(walnut), "Walnut");
    EXPECT_STREQ(walnut->getTypeName(), "SimpleMaterial");
    EXPECT_EQ(walnut->getDiffuse(), osg::Color3f(0.32F, 0.19F, 0.1F));
    EXPECT_EQ(walnut->getSpecular(), osg::Color3f(0.04F, 0.04F, 0.04F));
    EXPECT_FLOAT_EQ(walnut->getShininess(), 32);
    EXPECT_EQ(walnut->getTransparency(), 0);
    EXPECT_TRUE(walnut->getLit());

    const osg::SimpleMaterialPtr brass = materialOf("LampPole");
    EXPECT_EQ(brass->getSpecular(), osg::Color3f(0.8F, 0.6F, 0.25F));
    EXPECT_FLOAT_EQ(brass->getShininess(), 72);
    EXPECT_FLOAT_EQ(materialOf("WindowGlass")->getTransparency(), 0.75F);
    EXPECT_EQ(materialOf("LampShade")->getEmission(), osg::Color3f(0.6F, 0.5F, 0.25F));
    EXPECT_EQ(walnut->getEmission(), osg::Color3f(0, 0, 0));
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
    const auto bulb = lightOf<osg::PointLightPtr>("LampBulb");
    ASSERT_NE(bulb, osg::NullFC);
    EXPECT_TRUE(bulb->getDiffuse().equals(osg::Color4f(1, 0.8F, 0.5F, 1), 1e-6F));
    EXPECT_EQ(bulb->getAmbient(), osg::Color4f(0, 0, 0, 1));
    EXPECT_EQ(bulb->getConstantAttenuation(), 0);
    EXPECT_EQ(bulb->getQuadraticAttenuation(), 1);
    EXPECT_EQ(bulb->getBeacon(), find("LampBulb"));
    EXPECT_EQ(ksSettingsOf(find("LampBulb light"))->getLightIntensity(), 40);

    const auto spot = lightOf<osg::SpotLightPtr>("CeilingSpot");
    ASSERT_NE(spot, osg::NullFC);
    EXPECT_FLOAT_EQ(spot->getSpotCutOff(), 0.5F);
    EXPECT_NEAR(std::pow(std::cos(0.375), spot->getSpotExponent()), 0.5, 1e-5);
    EXPECT_EQ(spot->getDirection(), osg::Vec3f(0, 0, -1));
    EXPECT_FLOAT_EQ(ksSettingsOf(find("CeilingSpot light"))->getLightIntensity(), 120);

    const auto sun = lightOf<osg::DirectionalLightPtr>("Sun");
    ASSERT_NE(sun, osg::NullFC);
    EXPECT_TRUE(sun->getDiffuse().equals(osg::Color4f(1, 0.95F, 0.85F, 1), 1e-6F));
    EXPECT_EQ(sun->getDirection(), osg::Vec3f(0, 0, 1));
    EXPECT_EQ(ksSettingsOf(find("Sun light"))->getLightIntensity(), 3);
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
    EXPECT_STREQ(mesh->getMaterial()->getTypeName(), "SimpleMaterial");
    EXPECT_EQ(osg::SimpleMaterialPtr::dcast(mesh->getMaterial())->getDiffuse(), osg::Color3f(0.5F, 0.25F, 0));
}
