// SPDX-License-Identifier: MIT
#pragma once

#include "ksImageImporter.h"

#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <vector>

/// Makes materials of the scene graph from those of a model file, when they are first asked for.
class ksMaterialImporter
{
public:
    /// \a model must outlive the importer. Textures that cannot be read are reported to \a warn.
    ksMaterialImporter(const ksModelFile &model, const ksWarn &warn);

    /// The material at the position \a index of the model, which must exist. It is a SimpleTexturedMaterial
    /// when the model's has a colour texture, otherwise a SimpleMaterial, and bears the model's name for it.
    osg::SimpleMaterialPtr material(unsigned int index);

private:
    const ksModelFile &file;
    ksImageImporter images;
    std::vector<osg::RefPtr<osg::SimpleMaterialPtr>> materials;
};
