// SPDX-License-Identifier: MIT
#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/import/ksModelText.h>
#include <editor/scene/ksSoundNumbers.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <assimp/material.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {

/// A texture's path, empty when there is none, and the kind that the model has it as.
struct Texture
{
    std::string path;
    aiTextureType type = aiTextureType_NONE;
};

/// The first texture of \a source that is of one of \a types.
Texture firstTexture(const aiMaterial &source, std::initializer_list<aiTextureType> types)
{
    for (const aiTextureType type : types) {
        aiString path;
        if (source.GetTexture(type, 0, &path) == aiReturn_SUCCESS && path.length > 0)
            return {path.C_Str(), type};
    }
    return {};
}

Texture colourTexture(const aiMaterial &source)
{
    return firstTexture(source, {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE, aiTextureType_AMBIENT});
}

Texture glowTexture(const aiMaterial &source)
{
    return firstTexture(source, {aiTextureType_EMISSION_COLOR, aiTextureType_EMISSIVE});
}

/// The property of \a source that Assimp's key macros name, or \a otherwise when it has none.
template <class T>
T property(const aiMaterial &source, const char *key, unsigned int type, unsigned int index, T otherwise)
{
    T value;
    return source.Get(key, type, index, value) == aiReturn_SUCCESS ? value : otherwise;
}

bool has(const aiMaterial &source, const char *key, unsigned int type, unsigned int index)
{
    const aiMaterialProperty *found = nullptr;
    return aiGetMaterialProperty(&source, key, type, index, &found) == aiReturn_SUCCESS;
}

osg::Vec3f toColor(const aiColor3D &colour)
{
    return {colour.r, colour.g, colour.b};
}

osg::Vec3f baseColor(const aiMaterial &source)
{
    const auto diffuse = property(source, AI_MATKEY_COLOR_DIFFUSE, aiColor3D(0.8F, 0.8F, 0.8F));
    return toColor(property(source, AI_MATKEY_BASE_COLOR, diffuse));
}

osg::Vec3f glowColor(const aiMaterial &source)
{
    return toColor(property(source, AI_MATKEY_COLOR_EMISSIVE, aiColor3D()));
}

bool isPhysicallyBased(const aiMaterial &source)
{
    return has(source, AI_MATKEY_METALLIC_FACTOR) || has(source, AI_MATKEY_ROUGHNESS_FACTOR);
}

bool isPlain(const aiMaterial &source)
{
    return colourTexture(source).path.empty() && glowTexture(source).path.empty() &&
           glowColor(source) == osg::Vec3f(0, 0, 0);
}

float share(const aiMaterial &source, const char *key, unsigned int type, unsigned int index, float otherwise)
{
    return ksSoundNumbers::share(property(source, key, type, index, otherwise));
}

osg::MaterialPtr createPhysicallyBased(const aiMaterial &source)
{
    const osg::UBRDFMaterialPtr material = osg::UBRDFMaterial::create();
    CPEdit(material, osg::UBRDFMaterial::BaseColorFieldMask | osg::UBRDFMaterial::RoughnessFieldMask |
                         osg::UBRDFMaterial::MetalnessFieldMask |
                         osg::UBRDFMaterial::RefractionIndexFieldMask);
    material->setBaseColor(baseColor(source));
    material->setRoughness(share(source, AI_MATKEY_ROUGHNESS_FACTOR, 1));
    material->setMetalness(share(source, AI_MATKEY_METALLIC_FACTOR, 0));
    material->setRefractionIndex(property(source, AI_MATKEY_REFRACTI, material->getRefractionIndex()));
    return material;
}

/// Adds a component of full weight.
void addComponent(const osg::UberMaterialPtr &material, const char *name, const osg::Vec3f &color,
                  const osg::ImagePtr &image)
{
    const osg::ColorComponentPtr component = osg::ColorComponent::create();
    CPEdit(component, osg::ColorComponent::ColorFieldMask | osg::ColorComponent::ImageFieldMask);
    component->setColor(color);
    component->setImage(image);
    osg::setName(component, name);
    material->addColorComponent(component);
}

osg::ColorComponentSettingsPtr createSettings(const aiMaterial &source, ksModelFormat format)
{
    const osg::ColorComponentSettingsPtr settings = osg::ColorComponentSettings::create();
    aiUVTransform mapping;
    if (source.Get(AI_MATKEY_UVTRANSFORM(colourTexture(source).type, 0), mapping) != aiReturn_SUCCESS)
        return settings;
    const bool isGltf = format == ksModelFormat::Gltf;
    // Of glTF the reader turns the angle over.
    const float angle = isGltf ? -mapping.mRotation : mapping.mRotation;
    const float sine = std::sin(angle);
    const float cosine = std::cos(angle);
    const osg::Vec2f scale(mapping.mScaling.x, mapping.mScaling.y);
    osg::Vec2f offset(mapping.mTranslation.x, mapping.mTranslation.y);
    constexpr float Centre = 0.5F;
    if (isGltf) {
        // The file scales coordinates and then turns them about the upper left corner, as the settings do
        // about the lower left one. The reader has moved them by what would be right for a turn about the
        // centre.
        offset += osg::Vec2f(scale[0] * Centre * (cosine - 1 - sine) + scale[1] * sine,
                             scale[1] * (1 - cosine - Centre * (sine + cosine - 1)));
    } else {
        // The model turns coordinates about the texture's centre and scales then.
        offset +=
            osg::Vec2f(scale[0] * Centre * (1 - cosine + sine), scale[1] * Centre * (1 - cosine - sine));
    }
    CPEdit(settings, osg::ColorComponentSettings::MappingScaleFieldMask |
                         osg::ColorComponentSettings::MappingOffsetFieldMask |
                         osg::ColorComponentSettings::MappingRotationFieldMask);
    settings->setMappingScale(scale);
    settings->setMappingOffset(offset);
    settings->setMappingRotation(angle * ksDegreesPerRadian);
    return settings;
}

} // namespace

ksMaterialImporter::ksMaterialImporter(const ksModelFile &model, const ksWarn &warn)
    : file(model)
    , images(model, warn)
    , materials(model.scene().mNumMaterials)
{}

osg::MaterialPtr ksMaterialImporter::material(unsigned int index)
{
    osg::RefPtr<osg::MaterialPtr> &known = materials[index];
    if (known.get() == osg::NullFC) {
        const aiMaterial &source = *file.scene().mMaterials[index];
        known = createMaterial(source);
        osg::setName(known.get(), ksModelText::whole(source.GetName()).c_str());
        numberOfCutNames += ksModelText::mayBeCut(source.GetName()) ? 1 : 0;
    }
    return known.get();
}

float ksMaterialImporter::opacity(unsigned int index) const
{
    return share(*file.scene().mMaterials[index], AI_MATKEY_OPACITY, 1);
}

osg::MaterialPtr ksMaterialImporter::createMaterial(const aiMaterial &source)
{
    return isPhysicallyBased(source) && isPlain(source) ? createPhysicallyBased(source)
                                                        : createLayered(source);
}

osg::MaterialPtr ksMaterialImporter::createLayered(const aiMaterial &source)
{
    const auto imageOf = [this](const Texture &texture) {
        return texture.path.empty() ? osg::ImagePtr() : images.image(texture.path);
    };
    const osg::UberMaterialPtr material = osg::UberMaterial::create();
    CPEdit(material,
           osg::UberMaterial::ColorComponentDataFieldMask | osg::UberMaterial::ComponentSettingsFieldMask);
    addComponent(material, "base", baseColor(source), imageOf(colourTexture(source)));
    const osg::Vec3f gloss = toColor(property(source, AI_MATKEY_COLOR_SPECULAR, aiColor3D()));
    if (gloss != osg::Vec3f(0, 0, 0))
        addComponent(material, "gloss", gloss, imageOf(firstTexture(source, {aiTextureType_SPECULAR})));
    const osg::ImagePtr glowImage = imageOf(glowTexture(source));
    if (glowColor(source) != osg::Vec3f(0, 0, 0) || glowImage != osg::NullFC)
        addComponent(material, "glow", glowColor(source), glowImage);
    material->setComponentSettings(createSettings(source, file.format()));
    return material;
}
