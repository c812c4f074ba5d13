// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMaterial.h>

#include <QJsonObject>

#include <functional>
#include <memory>
#include <string>

struct aiMaterial;

/// Makes materials for Assimp of materials of the scene graph.
///
/// An osg::UBRDFMaterial is one with metallic and roughness factors. Of an osg::UberMaterial the component
/// "base", or the first that is enabled and has a weight, gives colour and texture, and the component "glow"
/// what the surface shines by itself. Any other material is grey.
class ksMaterialExporter
{
public:
    /// Gives the path of the texture with the pixels of an image; empty when there is none.
    using TexturePath = std::function<std::string(const osg::ImagePtr &)>;

    ksMaterialExporter() = delete;

    /// The material, which may be null, at an opacity from 0 (invisible) to 1.
    static std::unique_ptr<aiMaterial> create(const osg::MaterialPtr &material, float opacity,
                                              const TexturePath &texturePath);

    /// Whether two materials for Assimp look the same, but for their opacity and for what their textures
    /// show. What the eye cannot tell apart is the same, since other programs round.
    static bool lookTheSame(const aiMaterial &one, const aiMaterial &other);

    /// How the textures of \a material lie on surfaces, as KHR_texture_transform has it; empty when they do
    /// as they are.
    static QJsonObject textureTransform(const osg::MaterialPtr &material);
};
