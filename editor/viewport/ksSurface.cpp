// SPDX-License-Identifier: MIT
#include <editor/viewport/ksSurface.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>

#include <QtMath>

#include <cstring>

namespace {

bool isUsable(const osg::ImagePtr &image)
{
    return image != osg::NullFC && image->isValid();
}

bool isCalled(const osg::ColorComponentPtr &component, const char *name)
{
    const char *known = osg::getName(component);
    return known != nullptr && std::strcmp(known, name) == 0;
}

/// Texture coordinates are scaled, then turned, then moved.
QMatrix3x3 mappingOf(const osg::ColorComponentSettings &settings)
{
    const float turn = qDegreesToRadians(settings.getMappingRotation());
    const float sine = std::sin(turn);
    const float cosine = std::cos(turn);
    const osg::Vec2f &scale = settings.getMappingScale();
    const osg::Vec2f &offset = settings.getMappingOffset();
    const float rows[] = {cosine * scale[0],
                          -sine * scale[1],
                          offset[0],
                          sine * scale[0],
                          cosine * scale[1],
                          offset[1],
                          0,
                          0,
                          1};
    return QMatrix3x3(rows);
}

/// Components blend by their weights, but those that imported materials have for highlights and glow.
ksSurface surfaceOf(const osg::UberMaterial &material)
{
    ksSurface surface;
    float weights = 0;
    for (const osg::ColorComponentPtr &component : material.getColorComponentData())
        if (component != osg::NullFC && component->getEnabled() && component->getWeight() > 0 &&
            !isCalled(component, "gloss") && !isCalled(component, "glow"))
            weights += component->getWeight();
    if (weights > 0)
        surface.color = QVector3D();
    for (const osg::ColorComponentPtr &component : material.getColorComponentData()) {
        if (component == osg::NullFC || !component->getEnabled() || !(component->getWeight() > 0))
            continue;
        const osg::ImagePtr image = isUsable(component->getImage()) ? component->getImage() : osg::ImagePtr();
        const QVector3D color = ksToQt(component->getColor());
        const QVector3D weighted = color * component->getWeight();
        if (isCalled(component, "glow")) {
            (image != osg::NullFC ? surface.glowLayer.color : surface.glow) += weighted;
            surface.glowLayer.image = image;
        } else if (isCalled(component, "gloss")) {
            // What shines from all sides is rarely meant by files that say so.
            constexpr float MostGloss = 0.2F;
            surface.gloss = weighted * MostGloss;
            surface.roughness = 0.4F;
        } else if (image == osg::NullFC) {
            surface.color += weighted / weights;
        } else if (surface.layers.size() < ksSurface::MostLayers) {
            surface.layers.push_back({weighted / weights, image});
        }
    }
    if (const osg::ColorComponentSettingsPtr settings = material.getComponentSettings();
        settings != osg::NullFC) {
        surface.mapping = mappingOf(*settings);
        if (settings->getPlanarProjection() && settings->getProjectionSize() > 0)
            surface.projectionSize = settings->getProjectionSize();
    }
    return surface;
}

ksSurface surfaceOf(const osg::UBRDFMaterial &material)
{
    ksSurface surface;
    surface.color = ksToQt(material.getBaseColor());
    surface.roughness = material.getRoughness();
    surface.metalness = std::clamp(material.getMetalness(), 0.0F, 1.0F);
    const float index = material.getRefractionIndex();
    const float mirrored = index > 0 ? std::pow((index - 1) / (index + 1), 2.0F) : 0;
    surface.gloss = QVector3D(mirrored, mirrored, mirrored);
    if (const osg::MaterialPtr mirrors = material.getEnvironment(); mirrors != osg::NullFC) {
        const auto physical = osg::UBRDFMaterialPtr::dcast(mirrors);
        // A material may be in its own environment.
        const ksSurface around = physical != osg::NullFC ? ksSurface() : ksSurface::of(mirrors);
        surface.hasEnvironment = true;
        surface.environment.color =
            physical != osg::NullFC ? ksToQt(physical->getBaseColor()) : around.color + around.glow;
        if (!around.layers.empty())
            surface.environment = around.layers.front();
    }
    return surface;
}

ksSurface surfaceOf(const osg::SimpleMaterial &material)
{
    ksSurface surface;
    surface.color = ksToQt(material.getDiffuse());
    surface.glow = ksToQt(material.getEmission());
    surface.gloss = ksToQt(material.getSpecular()) * 0.2F;
    surface.roughness = std::pow(2 / (std::max(material.getShininess(), 0.0F) + 2), 0.25F);
    surface.opacity = 1 - std::clamp(material.getTransparency(), 0.0F, 1.0F);
    surface.isLit = material.getLit();
    return surface;
}

ksSurface surfaceOf(const osg::SimpleTexturedMaterial &material)
{
    constexpr osg::UInt32 Modulate = 0x2100; // as OpenGL calls it
    ksSurface surface = surfaceOf(static_cast<const osg::SimpleMaterial &>(material));
    if (!isUsable(material.getImage()))
        return surface;
    const bool isTinted = material.getEnvMode() == Modulate;
    const QVector3D tint = isTinted ? surface.color : QVector3D(1, 1, 1);
    if (material.getEnvMap()) {
        surface.hasEnvironment = true;
        surface.environment = {tint, material.getImage()};
        surface.metalness = 1;
        surface.roughness = 0.1F;
        surface.color = tint;
    } else {
        surface.layers.push_back({tint, material.getImage()});
        surface.color = QVector3D();
    }
    return surface;
}

} // namespace

ksSurface ksSurface::of(const osg::MaterialPtr &material)
{
    if (const auto layered = osg::UberMaterialPtr::dcast(material); layered != osg::NullFC)
        return surfaceOf(*layered);
    if (const auto physical = osg::UBRDFMaterialPtr::dcast(material); physical != osg::NullFC)
        return surfaceOf(*physical);
    if (const auto textured = osg::SimpleTexturedMaterialPtr::dcast(material); textured != osg::NullFC)
        return surfaceOf(*textured);
    if (const auto simple = osg::SimpleMaterialPtr::dcast(material); simple != osg::NullFC)
        return surfaceOf(*simple);
    return ksSurface();
}
