// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksImageImporter.h>

#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGRefPtr.h>

#include <vector>

struct aiMaterial;

/// Makes materials of the scene graph from those of a model file, when they are first asked for. They bear
/// the model's names for them.
///
/// A material with metallic and roughness factors that is one plain colour becomes an osg::UBRDFMaterial.
/// Others become an osg::UberMaterial with up to three colour components, each with its image if it has one:
/// "base", always; "gloss", when the file gives a colour for highlights; "glow", when the surface shines by
/// itself. A plain physically based material that glows is among these, since an osg::UBRDFMaterial has
/// nowhere to put that; with a texture the factors are left out, since an osg::UberMaterial has nowhere to
/// put those. The settings of the components hold how the colour texture is laid on.
class ksMaterialImporter
{
public:
    /// \a model must outlive the importer. Textures that cannot be read are reported to \a warn.
    ksMaterialImporter(const ksModelFile &model, const ksWarn &warn);

    /// The material at the position \a index of the model, which must exist.
    osg::MaterialPtr material(unsigned int index);

    /// Its opacity, 0 (invisible) to 1, which materials of the scene graph do not have.
    float opacity(unsigned int index) const;

    /// How many of the materials that it has made have names that may be cut.
    int cutNames() const { return numberOfCutNames; }

private:
    osg::MaterialPtr createMaterial(const aiMaterial &source);
    osg::MaterialPtr createLayered(const aiMaterial &source);

    const ksModelFile &file;
    ksImageImporter images;
    std::vector<osg::RefPtr<osg::MaterialPtr>> materials;
    int numberOfCutNames = 0;
};
