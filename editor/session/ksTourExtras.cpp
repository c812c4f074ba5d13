// SPDX-License-Identifier: MIT
#include "ksTourExtras.h"

#include "ksAddChildUndoCommand.h"
#include "ksAttachUndoCommand.h"
#include "ksCheckedHistory.h"
#include "ksMesh.h"

#include <OSGTransform3D.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>

namespace {

constexpr std::size_t Places = 5;
constexpr std::size_t Constrained = 3;

osg::NodePtr makeNode(const char *name, const osg::NodeCorePtr &core)
{
    const osg::NodePtr node = osg::Node::create();
    CPEdit(node, osg::Node::CoreFieldMask | osg::Node::AttachmentsFieldMask);
    node->setCore(core);
    node->addAttachment(osg::ksNodeSettings::create());
    osg::setName(node, name);
    return node;
}

osg::UberMaterialPtr makeLayeredMaterial()
{
    const osg::UberMaterialPtr material = osg::UberMaterial::create();
    CPEdit(material,
           osg::UberMaterial::ColorComponentDataFieldMask | osg::UberMaterial::ComponentSettingsFieldMask);
    material->addColorComponent(osg::ColorComponent::create());
    material->setComponentSettings(osg::ColorComponentSettings::create());
    return material;
}

/// New objects for \a nodes, in the order of their handles.
std::vector<osg::ConstraintObjectPtr> makeObjects(const std::vector<osg::NodePtr> &nodes)
{
    std::vector<osg::ConstraintObjectPtr> objects;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        objects.push_back(osg::ConstraintObject::create());
    std::sort(objects.begin(), objects.end());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        CPEdit(objects[i], osg::ConstraintObject::NodeIdFieldMask);
        objects[i]->setNode(nodes[i]);
    }
    return objects;
}

} // namespace

ksTourExtras::ksTourExtras(ksTourTargets &targets)
    : targets(targets)
    , group(makeNode("Tour", osg::Group::create()))
{
    addLights();
    linkSet = osg::LightLinkSet::create();
    addNode("Tour links", linkSet);
    for (std::size_t i = 0; i < Places; ++i)
        placeNodes.push_back(addNode("Tour place", osg::Group::create()));
    addLacking();
    addConstraint();
    for (std::size_t i = 0; i < targets.nodes.size(); ++i)
        tagAttachments.push_back(osg::TagAttachment::create());
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
    const osg::NodePtr node = makeNode(name, core);
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

    aim = osg::AimConstraint::create();
    addNode("Tour aim", aim);
    CPEdit(aim, osg::AimConstraint::SourcesFieldMask | osg::AimConstraint::UpVectorSourcesFieldMask |
                    osg::AimConstraint::TargetFieldMask);
    for (const osg::ConstraintObjectPtr &object : makeObjects(constrainedNodes))
        aim->addSourceObject(object);
    aim->addUpVectorObject(makeObjects({constrainedNodes.front()}).front());
    aim->setTarget(constrainedNodes.front());
}
