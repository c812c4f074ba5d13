// SPDX-License-Identifier: MIT
#include <checker/tour/ksTourTargets.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksMesh.h>

#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OSGTransform3D.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGImage.h>

#include <algorithm>

namespace {

constexpr std::size_t NodesAtMost = 4;
constexpr std::size_t TransformsAtMost = 3;
constexpr std::size_t OthersAtMost = 2;

/// At most \a count of \a all, the first and the last among them.
template <class PtrT>
std::vector<PtrT> spread(const std::vector<PtrT> &all, std::size_t count)
{
    if (all.size() <= count)
        return all;
    std::vector<PtrT> chosen;
    for (std::size_t i = 0; i < count; ++i)
        chosen.push_back(all[i * (all.size() - 1) / (count - 1)]);
    return chosen;
}

template <class PtrT, class SourceT>
void addOnce(std::vector<PtrT> &list, const SourceT &container)
{
    const PtrT wanted = PtrT::dcast(container);
    if (wanted != osg::NullFC && std::find(list.begin(), list.end(), wanted) == list.end())
        list.push_back(wanted);
}

template <class PtrT>
void append(std::vector<osg::FieldContainerPtr> &list, const std::vector<PtrT> &more)
{
    list.insert(list.end(), more.begin(), more.end());
}

} // namespace

ksTourTargets::ksTourTargets(const osg::NodePtr &root)
{
    std::vector<osg::NodePtr> allNodes;
    std::vector<osg::UberLightPtr> lightCores;
    std::vector<osg::ImagePtr> images;
    ksContainers::visitNodes(root, [&](const osg::NodePtr &node) {
        allNodes.push_back(node);
        if (osg::Transform3DPtr::dcast(node->getCore()) != osg::NullFC)
            transforms.push_back(node);
        if (osg::UberLightPtr::dcast(node->getCore()) != osg::NullFC)
            lights.push_back(node);
        if (const osg::ksMeshPtr mesh = osg::ksMeshPtr::dcast(node->getCore())) {
            addOnce(layeredMaterials, mesh->getMaterial());
            addOnce(physicalMaterials, mesh->getMaterial());
        }
    });
    for (const osg::UberMaterialPtr &material : layeredMaterials)
        for (const osg::ColorComponentPtr &component : material->getColorComponentData())
            addOnce(images, component->getImage());

    nodes = spread(allNodes, NodesAtMost);
    transforms = spread(transforms, TransformsAtMost);
    lights = spread(lights, OthersAtMost);
    layeredMaterials = spread(layeredMaterials, OthersAtMost);
    physicalMaterials = spread(physicalMaterials, OthersAtMost);
    for (const osg::NodePtr &node : nodes)
        addOnce(settings, node->findAttachment(osg::ksNodeSettings::getClassType()));
    for (const osg::NodePtr &light : lights)
        addOnce(lightCores, light->getCore());

    append(containers, settings);
    append(containers, spread(nodes, OthersAtMost));
    append(containers, layeredMaterials);
    append(containers, physicalMaterials);
    append(containers, lightCores);
    append(containers, spread(images, OthersAtMost));
}

std::vector<const osg::FieldDescription *>
ksTourTargets::editableFields(const osg::FieldContainerPtr &container)
{
    const osg::FieldContainerType &type = container->getType();
    const bool isImage = osg::ImagePtr::dcast(container) != osg::NullFC;
    const osg::UInt32 first = isImage ? osg::UInt32(osg::Image::ForceCompressedDataFieldId) : 1;
    std::vector<const osg::FieldDescription *> fields;
    for (osg::UInt32 id = first; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription *description = type.getFieldDescription(id);
        if (!description->isInternal() &&
            ksFieldBaseUndoCommand::findField(container, description->getCName()) == description)
            fields.push_back(description);
    }
    return fields;
}
