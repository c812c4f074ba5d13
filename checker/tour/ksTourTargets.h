// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksNodeSettings.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGNode.h>

#include <vector>

/// The containers of a scene that a tour edits: a few of every kind, spread over the scene.
struct ksTourTargets
{
    /// Picks them from the scene below \a root.
    explicit ksTourTargets(const osg::NodePtr &root);

    /// At least one of each: every node that the editor loads has settings.
    std::vector<osg::NodePtr> nodes;
    std::vector<osg::ksNodeSettingsPtr> settings;

    /// Nodes whose core is a transform.
    std::vector<osg::NodePtr> transforms;

    /// Nodes whose core is a light.
    std::vector<osg::NodePtr> lights;

    std::vector<osg::UberMaterialPtr> layeredMaterials;
    std::vector<osg::UBRDFMaterialPtr> physicalMaterials;

    /// All nodes and settings, and the materials, lights and images of the scene.
    std::vector<osg::FieldContainerPtr> containers;

    /// The fields of \a container that may be edited without regard to others: what describes the layout of
    /// an image's pixels and what the scene graph keeps itself is left out.
    static std::vector<const osg::FieldDescription *> editableFields(const osg::FieldContainerPtr &container);
};
