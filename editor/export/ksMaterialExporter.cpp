// SPDX-License-Identifier: MIT
#include <editor/export/ksMaterialExporter.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksSoundNumbers.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QJsonArray>
#include <QtMath>
#include <assimp/material.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr float UsualRefractionIndex = 1.5F;

using ksSoundNumbers::share;

aiColor3D toShares(const osg::Vec3f &color)
{
    return {share(color[0]), share(color[1]), share(color[2])};
}

void setColour(aiMaterial &target, const aiColor3D &color)
{
    const aiColor4D base(color.r, color.g, color.b, 1);
    target.AddProperty(&base, 1, AI_MATKEY_BASE_COLOR);
}

void setNumber(aiMaterial &target, float value, const char *key, unsigned int type, unsigned int index)
{
    target.AddProperty(&value, 1, key, type, index);
}

void setTexture(aiMaterial &target, const std::string &path, aiTextureType type)
{
    const aiString text(path);
    if (!path.empty())
        target.AddProperty(&text, AI_MATKEY_TEXTURE(type, 0));
}

/// Black when there is none.
aiColor3D colour(const aiMaterial &material, const char *key, unsigned int type, unsigned int index)
{
    aiColor3D value;
    material.Get(key, type, index, value);
    return value;
}

/// 1, as in glTF, when there is none.
float number(const aiMaterial &material, const char *key, unsigned int type, unsigned int index)
{
    float value = 1;
    material.Get(key, type, index, value);
    return value;
}

bool isClose(float a, float b)
{
    // Half of a step of colours that are counted from 0 to 255.
    constexpr float Visible = 1.0F / 512;
    return std::abs(a - b) <= Visible;
}

bool isClose(const aiColor3D &a, const aiColor3D &b)
{
    return isClose(a.r, b.r) && isClose(a.g, b.g) && isClose(a.b, b.b);
}

osg::ColorComponentPtr findComponent(const osg::UberMaterial &material, const char *name)
{
    for (const osg::ColorComponentPtr &component : material.getColorComponentData())
        if (ksContainers::ownNameOf(component) == name)
            return component;
    return osg::NullFC;
}

osg::ColorComponentPtr baseComponent(const osg::UberMaterial &material)
{
    if (const osg::ColorComponentPtr base = findComponent(material, "base"))
        return base;
    const osg::MFColorComponentPtr &all = material.getColorComponentData();
    const auto found = std::find_if(all.begin(), all.end(), [](const osg::ColorComponentPtr &component) {
        return component != osg::NullFC && component->getEnabled() && component->getWeight() > 0;
    });
    return found != all.end() ? *found : osg::ColorComponentPtr();
}

std::string pathOf(const osg::ImagePtr &image, const ksMaterialExporter::TexturePath &texturePath)
{
    return image == osg::NullFC ? std::string() : texturePath(image);
}

void takePhysicallyBased(aiMaterial &target, const osg::UBRDFMaterial &source)
{
    setColour(target, toShares(source.getBaseColor()));
    setNumber(target, share(source.getRoughness()), AI_MATKEY_ROUGHNESS_FACTOR);
    setNumber(target, share(source.getMetalness()), AI_MATKEY_METALLIC_FACTOR);
    if (std::isfinite(source.getRefractionIndex()) && source.getRefractionIndex() >= 1 &&
        source.getRefractionIndex() != UsualRefractionIndex)
        setNumber(target, source.getRefractionIndex(), AI_MATKEY_REFRACTI);
}

void takeLayered(aiMaterial &target, const osg::UberMaterial &source,
                 const ksMaterialExporter::TexturePath &texturePath)
{
    const osg::ColorComponentPtr base = baseComponent(source);
    setColour(target, base == osg::NullFC ? aiColor3D(1, 1, 1) : toShares(base->getColor()));
    if (base != osg::NullFC)
        setTexture(target, pathOf(base->getImage(), texturePath), aiTextureType_BASE_COLOR);
    if (const osg::ColorComponentPtr glow = findComponent(source, "glow")) {
        const aiColor3D color = toShares(glow->getColor());
        target.AddProperty(&color, 1, AI_MATKEY_COLOR_EMISSIVE);
        setTexture(target, pathOf(glow->getImage(), texturePath), aiTextureType_EMISSIVE);
    }
}

} // namespace

std::unique_ptr<aiMaterial> ksMaterialExporter::create(const osg::MaterialPtr &material, float opacity,
                                                       const TexturePath &texturePath)
{
    auto result = std::make_unique<aiMaterial>();
    const osg::UBRDFMaterialPtr physicallyBased = osg::UBRDFMaterialPtr::dcast(material);
    if (physicallyBased == osg::NullFC) {
        // Without them the surface would be one of metal.
        setNumber(*result, 1, AI_MATKEY_ROUGHNESS_FACTOR);
        setNumber(*result, 0, AI_MATKEY_METALLIC_FACTOR);
    }
    if (physicallyBased != osg::NullFC)
        takePhysicallyBased(*result, *physicallyBased);
    else if (const auto layered = osg::UberMaterialPtr::dcast(material))
        takeLayered(*result, *layered, texturePath);
    else
        setColour(*result, aiColor3D(0.8F, 0.8F, 0.8F));
    setNumber(*result, share(opacity), AI_MATKEY_OPACITY);
    return result;
}

bool ksMaterialExporter::lookTheSame(const aiMaterial &one, const aiMaterial &other)
{
    const auto hasTexture = [](const aiMaterial &material, aiTextureType type) {
        return material.GetTextureCount(type) > 0;
    };
    return isClose(colour(one, AI_MATKEY_BASE_COLOR), colour(other, AI_MATKEY_BASE_COLOR)) &&
           isClose(colour(one, AI_MATKEY_COLOR_EMISSIVE), colour(other, AI_MATKEY_COLOR_EMISSIVE)) &&
           isClose(number(one, AI_MATKEY_ROUGHNESS_FACTOR), number(other, AI_MATKEY_ROUGHNESS_FACTOR)) &&
           isClose(number(one, AI_MATKEY_METALLIC_FACTOR), number(other, AI_MATKEY_METALLIC_FACTOR)) &&
           hasTexture(one, aiTextureType_BASE_COLOR) == hasTexture(other, aiTextureType_BASE_COLOR) &&
           hasTexture(one, aiTextureType_EMISSIVE) == hasTexture(other, aiTextureType_EMISSIVE);
}

QJsonObject ksMaterialExporter::textureTransform(const osg::MaterialPtr &material)
{
    const auto layered = osg::UberMaterialPtr::dcast(material);
    const osg::ColorComponentSettingsPtr settings =
        layered == osg::NullFC ? osg::ColorComponentSettingsPtr() : layered->getComponentSettings();
    if (settings == osg::NullFC)
        return {};
    const osg::Vec2f &scale = settings->getMappingScale();
    const osg::Vec2f &offset = settings->getMappingOffset();
    const float degrees = settings->getMappingRotation();
    for (const float value : {scale[0], scale[1], offset[0], offset[1], degrees})
        if (!std::isfinite(value))
            return {};
    if (scale == osg::Vec2f(1, 1) && offset == osg::Vec2f(0, 0) && degrees == 0)
        return {};
    // Coordinates of glTF start at the top, those of the settings at the bottom.
    const double angle = qDegreesToRadians(double(degrees));
    const double sine = std::sin(angle);
    const double cosine = std::cos(angle);
    return {{QStringLiteral("scale"), QJsonArray{double(scale[0]), double(scale[1])}},
            {QStringLiteral("rotation"), angle},
            {QStringLiteral("offset"),
             QJsonArray{offset[0] - sine * scale[1], 1 - cosine * scale[1] - offset[1]}}};
}
