// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

class ksImageFieldUndoCommand;

/// The part of a tour with the commands on materials: colour components, their settings, textures, and
/// environments.
class ksMaterialTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void editComponents(const osg::UberMaterialPtr &material);
    void editSettings(const osg::UberMaterialPtr &material);
    void editTogether(const osg::UberMaterialPtr &material);
    void swapImages(const osg::ColorComponentPtr &component);
    void setImage(const osg::ColorComponentPtr &component, const osg::ImagePtr &given,
                  const osg::ImagePtr &wanted);
    void setEnvironments(const osg::UBRDFMaterialPtr &material);

    ksCallLog log;
};
