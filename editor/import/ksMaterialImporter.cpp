// SPDX-License-Identifier: MIT
#include "ksMaterialImporter.h"

#include "ksModelFile.h"

#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>

#include <assimp/material.h>
#include <assimp/scene.h>

#include <algorithm>

namespace {

/// OpenGL's mode in which the texture's colour is multiplied with the lit material's.
constexpr osg::UInt32 Modulate = 0x2100;

constexpr float LargestShininess = 128;

/// What a dielectric reflects of light from straight above, grey.
constexpr float DielectricReflectance = 0.04F;

/// The path of the texture that gives the material its colour; empty when it has none.
std::string colourTexture(const aiMaterial &source)
{
    for (const aiTextureType type :
         {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE, aiTextureType_AMBIENT, aiTextureType_EMISSIVE}) {
        aiString path;
        if (source.GetTexture(type, 0, &path) == aiReturn_SUCCESS && path.length > 0)
            return path.C_Str();
    }
    return {};
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

osg::Color3f toColor(const aiColor3D &colour)
{
    return {colour.r, colour.g, colour.b};
}

aiColor3D diffuseOf(const aiMaterial &source)
{
    const auto diffuse = property(source, AI_MATKEY_COLOR_DIFFUSE, aiColor3D(0.8F, 0.8F, 0.8F));
    return property(source, AI_MATKEY_BASE_COLOR, diffuse);
}

aiColor3D specularOf(const aiMaterial &source)
{
    const float metallic = std::clamp(property(source, AI_MATKEY_METALLIC_FACTOR, 0.0F), 0.0F, 1.0F);
    const aiColor3D dielectric(DielectricReflectance, DielectricReflectance, DielectricReflectance);
    const aiColor3D reflected = dielectric * (1 - metallic) + diffuseOf(source) * metallic;
    return property(source, AI_MATKEY_COLOR_SPECULAR,
                    has(source, AI_MATKEY_METALLIC_FACTOR) ? reflected : aiColor3D());
}

float shininessOf(const aiMaterial &source)
{
    const float smoothness = 1 - std::clamp(property(source, AI_MATKEY_ROUGHNESS_FACTOR, 1.0F), 0.0F, 1.0F);
    // Where the model gives a roughness, the reader's shininess is a guess from it on another scale.
    const float shininess = has(source, AI_MATKEY_ROUGHNESS_FACTOR)
                                ? smoothness * smoothness * LargestShininess
                                : property(source, AI_MATKEY_SHININESS, 0.0F);
    return std::clamp(shininess, 0.0F, LargestShininess);
}

bool isLit(const aiMaterial &source)
{
    const int shading = property(source, AI_MATKEY_SHADING_MODEL, static_cast<int>(aiShadingMode_Gouraud));
    return shading != aiShadingMode_NoShading;
}

osg::SimpleMaterialPtr createMaterial(const osg::ImagePtr &image)
{
    if (image == osg::NullFC)
        return osg::SimpleMaterial::create();
    const osg::SimpleTexturedMaterialPtr material = osg::SimpleTexturedMaterial::create();
    CPEdit(material,
           osg::SimpleTexturedMaterial::ImageFieldMask | osg::SimpleTexturedMaterial::EnvModeFieldMask);
    material->setImage(image);
    material->setEnvMode(Modulate);
    return material;
}

void takeSurface(const osg::SimpleMaterialPtr &material, const aiMaterial &source)
{
    const aiColor3D diffuse = diffuseOf(source);
    const float opacity = std::clamp(property(source, AI_MATKEY_OPACITY, 1.0F), 0.0F, 1.0F);

    CPEdit(material, osg::SimpleMaterial::AmbientFieldMask | osg::SimpleMaterial::DiffuseFieldMask |
                         osg::SimpleMaterial::SpecularFieldMask | osg::SimpleMaterial::ShininessFieldMask |
                         osg::SimpleMaterial::EmissionFieldMask | osg::SimpleMaterial::TransparencyFieldMask |
                         osg::SimpleMaterial::LitFieldMask);
    material->setAmbient(toColor(property(source, AI_MATKEY_COLOR_AMBIENT, diffuse)));
    material->setDiffuse(toColor(diffuse));
    material->setSpecular(toColor(specularOf(source)));
    material->setShininess(shininessOf(source));
    material->setEmission(toColor(property(source, AI_MATKEY_COLOR_EMISSIVE, aiColor3D())));
    material->setTransparency(1 - opacity);
    material->setLit(isLit(source));
}

} // namespace

ksMaterialImporter::ksMaterialImporter(const ksModelFile &model, const ksWarn &warn)
    : file(model)
    , images(model, warn)
    , materials(model.scene().mNumMaterials)
{}

osg::SimpleMaterialPtr ksMaterialImporter::material(unsigned int index)
{
    osg::RefPtr<osg::SimpleMaterialPtr> &known = materials[index];
    if (known.get() != osg::NullFC)
        return known.get();

    const aiMaterial &source = *file.scene().mMaterials[index];
    const std::string texture = colourTexture(source);
    const osg::SimpleMaterialPtr material =
        createMaterial(texture.empty() ? osg::ImagePtr() : images.image(texture));
    known = osg::RefPtr<osg::SimpleMaterialPtr>(material);
    takeSurface(material, source);
    osg::setName(material, source.GetName().C_Str());
    return material;
}
