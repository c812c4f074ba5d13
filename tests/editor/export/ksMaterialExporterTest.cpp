// SPDX-License-Identifier: MIT
#include <editor/export/ksMaterialExporter.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <assimp/material.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

class ksMaterialExporterTest : public testing::Test
{
protected:
    static std::unique_ptr<aiMaterial> exported(const osg::MaterialPtr &material, float opacity = 1)
    {
        return ksMaterialExporter::create(
            material, opacity, [](const osg::ImagePtr &image) { return "path of " + image->getName(); });
    }

    static osg::ColorComponentPtr addComponent(const osg::UberMaterialPtr &material, const char *name,
                                               const osg::Vec3f &color, const char *image = nullptr)
    {
        const osg::ColorComponentPtr component = osg::ColorComponent::create();
        component->setColor(color);
        osg::setName(component, name);
        if (image != nullptr) {
            component->setImage(osg::Image::create());
            component->getImage()->setName(image);
        }
        material->addColorComponent(component);
        return component;
    }

    static aiColor4D baseColor(const aiMaterial &material)
    {
        aiColor4D colour(-1, -1, -1, -1);
        EXPECT_EQ(material.Get(AI_MATKEY_BASE_COLOR, colour), aiReturn_SUCCESS);
        return colour;
    }

    static float number(const aiMaterial &material, const char *key, unsigned int type, unsigned int index)
    {
        float value = -1;
        material.Get(key, type, index, value);
        return value;
    }

    static std::string texture(const aiMaterial &material, aiTextureType type)
    {
        aiString path;
        material.GetTexture(type, 0, &path);
        return path.C_Str();
    }
};

} // namespace

TEST_F(ksMaterialExporterTest, KeepsPhysicallyBasedMaterials)
{
    const osg::UBRDFMaterialRefPtr material(osg::UBRDFMaterial::create());
    material->setBaseColor({0.25F, 2, -1});
    material->setRoughness(0.75F);
    material->setMetalness(std::numeric_limits<float>::quiet_NaN());
    const auto made = exported(material.get(), 0.5F);
    EXPECT_EQ(baseColor(*made), aiColor4D(0.25F, 1, 0, 1));
    EXPECT_EQ(number(*made, AI_MATKEY_ROUGHNESS_FACTOR), 0.75F);
    EXPECT_EQ(number(*made, AI_MATKEY_METALLIC_FACTOR), 0);
    EXPECT_EQ(number(*made, AI_MATKEY_OPACITY), 0.5F);
    EXPECT_EQ(number(*made, AI_MATKEY_REFRACTI), -1);
    material->setRefractionIndex(1.75F);
    EXPECT_EQ(number(*exported(material.get()), AI_MATKEY_REFRACTI), 1.75F);
}

TEST_F(ksMaterialExporterTest, KeepsBaseAndGlowOfLayeredMaterials)
{
    const osg::UberMaterialRefPtr material(osg::UberMaterial::create());
    EXPECT_EQ(baseColor(*exported(material.get())), aiColor4D(1, 1, 1, 1));
    addComponent(material, "off", {1, 0, 0})->setEnabled(false);
    addComponent(material, "weightless", {1, 0, 0})->setWeight(0);
    addComponent(material, "first", {0, 0, 1}, "first.png");
    EXPECT_EQ(baseColor(*exported(material.get())), aiColor4D(0, 0, 1, 1));
    EXPECT_EQ(texture(*exported(material.get()), aiTextureType_BASE_COLOR), "path of first.png");
    addComponent(material, "base", {0, 1, 0});
    addComponent(material, "glow", {0, 0.5F, 0}, "glow.png");
    const auto made = exported(material.get());
    EXPECT_EQ(baseColor(*made), aiColor4D(0, 1, 0, 1));
    EXPECT_EQ(texture(*made, aiTextureType_BASE_COLOR), "");
    EXPECT_EQ(texture(*made, aiTextureType_EMISSIVE), "path of glow.png");
    aiColor3D glow;
    EXPECT_EQ(made->Get(AI_MATKEY_COLOR_EMISSIVE, glow), aiReturn_SUCCESS);
    EXPECT_EQ(glow, aiColor3D(0, 0.5F, 0));
    EXPECT_EQ(number(*made, AI_MATKEY_METALLIC_FACTOR), 0);
}

TEST_F(ksMaterialExporterTest, MakesOtherMaterialsGrey)
{
    const osg::SimpleMaterialRefPtr material(osg::SimpleMaterial::create());
    EXPECT_EQ(baseColor(*exported(material.get())), baseColor(*exported(osg::NullFC)));
}

/// Coordinates of glTF are scaled, turned and moved as those of the settings are, but start at the top.
TEST_F(ksMaterialExporterTest, LaysTexturesTheSameWay)
{
    const osg::UberMaterialRefPtr material(osg::UberMaterial::create());
    EXPECT_TRUE(ksMaterialExporter::textureTransform(material.get()).isEmpty());
    const osg::ColorComponentSettingsPtr settings = osg::ColorComponentSettings::create();
    material->setComponentSettings(settings);
    EXPECT_TRUE(ksMaterialExporter::textureTransform(material.get()).isEmpty());
    settings->setMappingScale({2, 3});
    settings->setMappingOffset({0.25F, 0.125F});
    settings->setMappingRotation(30);
    const QJsonObject transform = ksMaterialExporter::textureTransform(material.get());
    const auto value = [&transform](const char *name, int i) {
        return transform.value(QLatin1String(name))[i].toDouble();
    };
    const double rotation = transform.value(QLatin1String("rotation")).toDouble();
    const double sine = std::sin(rotation);
    const double cosine = std::cos(rotation);
    for (const auto &[u, v] :
         {std::pair(0.0, 0.0), std::pair(1.0, 0.0), std::pair(0.0, 1.0), std::pair(0.3, 0.8)}) {
        const double x = 2 * u;
        const double y = 3 * v;
        const double half = 0.5;
        const double root = std::sqrt(0.75);
        const double down = value("scale", 1) * (1 - v);
        const double right = value("scale", 0) * u;
        EXPECT_NEAR(cosine * right + sine * down + value("offset", 0), root * x - half * y + 0.25, 1e-6);
        EXPECT_NEAR(1 - (cosine * down - sine * right + value("offset", 1)), half * x + root * y + 0.125,
                    1e-6);
    }
    settings->setMappingRotation(std::numeric_limits<float>::infinity());
    EXPECT_TRUE(ksMaterialExporter::textureTransform(material.get()).isEmpty());
}

TEST_F(ksMaterialExporterTest, KnowsWhatLooksTheSame)
{
    const osg::UberMaterialRefPtr material(osg::UberMaterial::create());
    const osg::ColorComponentPtr base = addComponent(material, "base", {0.5F, 0.5F, 0.5F});
    const auto before = exported(material.get());
    base->setColor({0.501F, 0.5F, 0.5F});
    EXPECT_TRUE(ksMaterialExporter::lookTheSame(*before, *exported(material.get(), 0.5F)));
    base->setColor({0.51F, 0.5F, 0.5F});
    EXPECT_FALSE(ksMaterialExporter::lookTheSame(*before, *exported(material.get())));
    base->setColor({0.5F, 0.5F, 0.5F});
    addComponent(material, "glow", {0, 0, 0.1F});
    EXPECT_FALSE(ksMaterialExporter::lookTheSame(*before, *exported(material.get())));
    base->setImage(osg::Image::create());
    const osg::UberMaterialRefPtr textured(osg::UberMaterial::create());
    addComponent(textured, "base", {0.5F, 0.5F, 0.5F}, "image.png");
    EXPECT_FALSE(ksMaterialExporter::lookTheSame(*before, *exported(textured.get())));
}
