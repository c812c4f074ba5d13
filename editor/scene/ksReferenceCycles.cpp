// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksMesh.h>
#include <editor/scene/ksReferenceCycles.h>

#include <OSGAbstractConstraint.h>
#include <OSGLightLinkSet.h>
#include <OSGUBRDFMaterial.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGFieldContainerType.h>

#include <string_view>
#include <unordered_set>
#include <vector>

namespace {

/// Calls \a visit with every container that \a container holds a reference on.
template <class Visit>
void visitHeld(const osg::FieldContainerPtr &container, const Visit &visit)
{
    const osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const std::string_view name = type.getFieldDescription(id)->getCName();
        const osg::Field *field = container->getField(id);
        if (field != nullptr && name != "parent" && name != "parents")
            ksFieldReferences::visit(*field, visit);
    }
}

using ksReferenceCycles::wouldClose;

void releaseLinks(const osg::LightLinkSetPtr &set)
{
    const osg::MFNodePtr lights = set->getLights();
    for (const osg::NodePtr &node : lights)
        if (wouldClose(set, node))
            set->subLight(node);
    const osg::MFNodePtr nodes = set->getSceneNodes();
    for (const osg::NodePtr &node : nodes)
        if (wouldClose(set, node))
            set->subSceneNode(node);
}

/// The circle may lie behind \a material, between those that it mirrors.
void releaseEnvironments(osg::UBRDFMaterialPtr material)
{
    while (material != osg::NullFC && !wouldClose(material, material->getEnvironment()))
        material = osg::UBRDFMaterialPtr::dcast(material->getEnvironment());
    if (material == osg::NullFC)
        return;
    CPEdit(material, osg::UBRDFMaterial::EnvironmentFieldMask);
    material->setEnvironment(osg::NullFC);
}

/// Takes away what \a core refers to in a circle.
void releaseCore(const osg::NodeCorePtr &core)
{
    if (const auto light = osg::UberLightPtr::dcast(core)) {
        if (wouldClose(light, light->getVisibilityReference())) {
            CPEdit(light, osg::UberLight::VisibilityReferenceFieldMask);
            light->setVisibilityReference(osg::NullFC);
        }
    } else if (const auto constraint = osg::AbstractConstraintPtr::dcast(core)) {
        if (wouldClose(constraint, constraint->getTarget())) {
            CPEdit(constraint, osg::AbstractConstraint::TargetFieldMask);
            constraint->setTarget(osg::NullFC);
        }
    } else if (const auto set = osg::LightLinkSetPtr::dcast(core)) {
        releaseLinks(set);
    } else if (const auto mesh = osg::ksMeshPtr::dcast(core)) {
        releaseEnvironments(osg::UBRDFMaterialPtr::dcast(mesh->getMaterial()));
    }
}

} // namespace

bool ksReferenceCycles::wouldClose(const osg::FieldContainerPtr &holder, const osg::FieldContainerPtr &held)
{
    if (holder == osg::NullFC || held == osg::NullFC)
        return false;
    const osg::UInt32 wanted = holder.getFieldContainerId();
    std::vector<osg::FieldContainerPtr> open = {held};
    std::unordered_set<osg::UInt32> reached = {held.getFieldContainerId()};
    while (!open.empty() && reached.count(wanted) == 0) {
        const osg::FieldContainerPtr container = open.back();
        open.pop_back();
        visitHeld(container, [&open, &reached](const osg::FieldContainerPtr &next) {
            if (reached.insert(next.getFieldContainerId()).second)
                open.push_back(next);
        });
    }
    return reached.count(wanted) > 0;
}

void ksReferenceCycles::refuse(const osg::FieldContainerPtr &holder, const osg::FieldContainerPtr &held)
{
    if (wouldClose(holder, held))
        throw ksEditorError(ksContainers::label(holder) + QStringLiteral(" cannot refer to ") +
                            ksContainers::label(held) +
                            QStringLiteral(", which refers to it: neither could ever be released"));
}

void ksReferenceCycles::release(const osg::NodePtr &root)
{
    ksContainers::visitNodes(root, [](const osg::NodePtr &node) { releaseCore(node->getCore()); });
}
