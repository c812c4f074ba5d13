// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksTourExtras.h>
#include <editor/edits/ksAddChildUndoCommand.h>
#include <editor/edits/ksAttachUndoCommand.h>
#include <editor/edits/ksConstraintEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksMesh.h>

#include <OSGTransform3D.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGGroup.h>

namespace {

constexpr std::size_t Places = 5;
constexpr std::size_t Constrained = 3;

osg::UberMaterialPtr makeLayeredMaterial()
{
    const osg::UberMaterialPtr material = osg::UberMaterial::create();
    CPEdit(material,
           osg::UberMaterial::ColorComponentDataFieldMask | osg::UberMaterial::ComponentSettingsFieldMask);
    material->addColorComponent(osg::ColorComponent::create());
    material->setComponentSettings(osg::ColorComponentSettings::create());
    return material;
}

} // namespace

ksTourExtras::ksTourExtras(ksTourTargets &targets)
    : targets(targets)
    , group(ksContainers::createNode("Tour", osg::Group::create()))
{
    addLights();
    linkSet = osg::LightLinkSet::create();
    addNode("Tour links", linkSet);
    for (std::size_t i = 0; i < Places; ++i)
        placeNodes.push_back(addNode("Tour place", osg::Group::create()));
    addLacking();
    addConstraint();
    for (std::size_t i = 0; i < targets.nodes.size(); ++i) {
        tagAttachments.push_back(osg::TagAttachment::create());
        heldAttachments.emplace_back(tagAttachments.back());
    }
}

void ksTourExtras::addTo(ksCheckedHistory &history) const
{
    history.add(new ksAddChildUndoCommand(history.root(), group));
    for (std::size_t i = 0; i < tagAttachments.size(); ++i)
        history.add(new ksAttachUndoCommand(targets.nodes[i], tagAttachments[i]));
}

osg::ksNodeSettingsPtr ksTourExtras::settings() const
{
    return osg::ksNodeSettingsPtr::dcast(group->findAttachment(osg::ksNodeSettings::getClassType()));
}

osg::NodePtr ksTourExtras::addNode(const char *name, const osg::NodeCorePtr &core) const
{
    const osg::NodePtr node = ksContainers::createNode(name, core);
    CPEdit(group.get(), osg::Node::ChildrenFieldMask);
    group->addChild(node);
    return node;
}

void ksTourExtras::addMesh(const char *name, const osg::MaterialPtr &material) const
{
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    CPEdit(mesh, osg::ksMesh::MaterialFieldMask);
    mesh->setMaterial(material);
    addNode(name, mesh);
}

void ksTourExtras::addLights()
{
    const osg::UberLightPtr core = osg::UberLight::create();
    lightNode = addNode("Tour light", core);
    instanceNode = addNode("Tour light instance", core);
    const osg::NodePtr excluded = addNode("Tour light excluded", core);
    CPEdit(instanceNode, osg::Node::ExternalFlagsFieldMask);
    CPEdit(excluded, osg::Node::InternalFlagsFieldMask);
    instanceNode->setExternalFlags(osg::NodeExternalFlags::Instance);
    excluded->setInternalFlags(osg::NodeInternalFlags::ExcludedFromInstanceSubstitution);
    targets.lights.push_back(lightNode);
}

void ksTourExtras::addLacking() const
{
    if (targets.transforms.empty())
        targets.transforms.push_back(addNode("Tour transform", osg::Transform3D::create()));
    if (targets.layeredMaterials.empty()) {
        targets.layeredMaterials.push_back(makeLayeredMaterial());
        addMesh("Tour layers", targets.layeredMaterials.front());
    }
    if (targets.physicalMaterials.empty()) {
        targets.physicalMaterials.push_back(osg::UBRDFMaterial::create());
        addMesh("Tour surface", targets.physicalMaterials.front());
    }
}

void ksTourExtras::addConstraint()
{
    constrainedNodes = targets.nodes;
    constrainedNodes.insert(constrainedNodes.end(), placeNodes.begin(), placeNodes.end());
    constrainedNodes.resize(Constrained);

    const osg::NodePtr first = constrainedNodes.front();
    aim = ksConstraintEdits::makeAim(first, constrainedNodes, {first});
    addNode("Tour aim", aim);
}
