// SPDX-License-Identifier: MIT
#include <editor/viewport/ksSurface.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>

#include <gtest/gtest.h>

#include <array>

namespace {

osg::RefPtr<osg::ImagePtr> makeImage()
{
    const std::array<osg::UInt8, 3> pixel = {10, 20, 30};
    osg::RefPtr<osg::ImagePtr> image(osg::Image::create());
    image->set(osg::Image::OSG_RGB_PF, 1, 1, 1, 1, 1, 0, pixel.data());
    return image;
}

void addComponent(const osg::UberMaterialPtr &material, const osg::Vec3f &color, float weight,
                  bool isEnabled = true, const osg::ImagePtr &image = osg::NullFC, const char *name = "")
{
    const osg::ColorComponentPtr component = osg::ColorComponent::create();
    component->setColor(color);
    component->setWeight(weight);
    component->setEnabled(isEnabled);
    component->setImage(image);
    osg::setName(component, name);
    material->addColorComponent(component);
}

} // namespace

TEST(ksSurfaceTest, BlendsComponentsByTheirWeights)
{
    const osg::RefPtr<osg::UberMaterialPtr> material(osg::UberMaterial::create());
    EXPECT_EQ(ksSurface::of(material.get()).color, QVector3D(1, 1, 1)) << "nothing to blend";
    const osg::RefPtr<osg::ImagePtr> image = makeImage();
    addComponent(material.get(), osg::Vec3f(1, 0, 0), 3);
    addComponent(material.get(), osg::Vec3f(0, 1, 0), 1, true, image.get());
    addComponent(material.get(), osg::Vec3f(0, 0, 1), 5, false);
    addComponent(material.get(), osg::Vec3f(0, 0, 1), 0);
    addComponent(material.get(), osg::Vec3f(0, 0.5F, 0), 1, true, osg::NullFC, "glow");
    const ksSurface surface = ksSurface::of(material.get());
    EXPECT_EQ(surface.color, QVector3D(0.75F, 0, 0));
    ASSERT_EQ(surface.layers.size(), 1u);
    EXPECT_EQ(surface.layers[0].color, QVector3D(0, 0.25F, 0));
    EXPECT_EQ(surface.layers[0].image, image.get());
    EXPECT_EQ(surface.glow, QVector3D(0, 0.5F, 0));
}

TEST(ksSurfaceTest, LaysImagesAsTheSettingsSay)
{
    const osg::RefPtr<osg::UberMaterialPtr> material(osg::UberMaterial::create());
    const osg::ColorComponentSettingsPtr settings = osg::ColorComponentSettings::create();
    settings->setMappingScale(osg::Vec2f(2, 3));
    settings->setMappingRotation(90);
    settings->setMappingOffset(osg::Vec2f(10, 20));
    settings->setProjectionSize(4);
    material->setComponentSettings(settings);
    ksSurface surface = ksSurface::of(material.get());
    const auto mapped = [&surface](int row) {
        return surface.mapping(row, 0) * 1 + surface.mapping(row, 1) * 1 + surface.mapping(row, 2);
    };
    // (1, 1) is scaled to (2, 3), turned to (-3, 2) and moved.
    EXPECT_NEAR(mapped(0), 7, 1e-5F);
    EXPECT_NEAR(mapped(1), 22, 1e-5F);
    EXPECT_EQ(surface.projectionSize, 0);
    settings->setPlanarProjection(true);
    surface = ksSurface::of(material.get());
    EXPECT_EQ(surface.projectionSize, 4);
}

TEST(ksSurfaceTest, MirrorsTheEnvironment)
{
    const osg::RefPtr<osg::UBRDFMaterialPtr> material(osg::UBRDFMaterial::create());
    material->setBaseColor(osg::Vec3f(0.1F, 0.2F, 0.3F));
    material->setMetalness(2);
    ksSurface surface = ksSurface::of(material.get());
    EXPECT_EQ(surface.color, QVector3D(0.1F, 0.2F, 0.3F));
    EXPECT_EQ(surface.metalness, 1);
    EXPECT_NEAR(surface.gloss.x(), 0.04F, 1e-5F) << "of a refraction index of 1.5";
    EXPECT_FALSE(surface.hasEnvironment);

    const osg::UberMaterialPtr around = osg::UberMaterial::create();
    const osg::RefPtr<osg::ImagePtr> image = makeImage();
    addComponent(around, osg::Vec3f(1, 0.5F, 0), 1, true, image.get());
    material->setEnvironment(around);
    surface = ksSurface::of(material.get());
    EXPECT_TRUE(surface.hasEnvironment);
    EXPECT_EQ(surface.environment.color, QVector3D(1, 0.5F, 0));
    EXPECT_EQ(surface.environment.image, image.get());

    const osg::UBRDFMaterialPtr plain = osg::UBRDFMaterial::create();
    plain->setBaseColor(osg::Vec3f(0, 0, 1));
    material->setEnvironment(plain);
    surface = ksSurface::of(material.get());
    EXPECT_EQ(surface.environment.color, QVector3D(0, 0, 1));
    EXPECT_EQ(surface.environment.image, osg::NullFC);
}

TEST(ksSurfaceTest, KnowsSimpleMaterials)
{
    const osg::RefPtr<osg::SimpleTexturedMaterialPtr> material(osg::SimpleTexturedMaterial::create());
    material->setDiffuse(osg::Color3f(1, 0, 0));
    material->setTransparency(0.25F);
    material->setLit(false);
    ksSurface surface = ksSurface::of(material.get());
    EXPECT_EQ(surface.color, QVector3D(1, 0, 0));
    EXPECT_EQ(surface.opacity, 0.75F);
    EXPECT_FALSE(surface.isLit);
    const osg::RefPtr<osg::ImagePtr> image = makeImage();
    material->setImage(image.get());
    surface = ksSurface::of(material.get());
    ASSERT_EQ(surface.layers.size(), 1u);
    EXPECT_EQ(surface.layers[0].color, QVector3D(1, 1, 1)) << "the image replaces the colour";
    material->setEnvMap(true);
    surface = ksSurface::of(material.get());
    EXPECT_TRUE(surface.layers.empty());
    EXPECT_EQ(surface.environment.image, image.get());
    material->setImage(osg::NullFC);
    EXPECT_EQ(ksSurface::of(osg::NullFC).color, QVector3D(1, 1, 1));
}
