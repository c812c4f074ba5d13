// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksSavedFields.h>

#include <OSGConstraintObject.h>
#include <OSGTransform3D.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGLight.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSFAttachmentMap.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>

namespace {

/// Whether \a description is that of the field \a fieldId which \a ContainerT declares.
template <class ContainerT>
bool isField(const osg::FieldContainerPtr &container, const osg::FieldDescription &description,
             osg::UInt32 fieldId)
{
    return description.getFieldId() == fieldId &&
           container->getType().isDerivedFrom(ContainerT::getClassType());
}

bool isParents(const osg::FieldContainerPtr &container, const osg::FieldDescription &description)
{
    return isField<osg::NodeCore>(container, description, osg::NodeCore::ParentsFieldId) ||
           isField<osg::Attachment>(container, description, osg::Attachment::ParentsFieldId);
}

} // namespace

bool ksSavedFields::isSaved(const osg::FieldContainerPtr &container, const osg::FieldDescription &description)
{
    return isParents(container, description) ||
           (!description.isInternal() &&
            !isField<osg::Node>(container, description, osg::Node::VolumeFieldId) &&
            !isField<osg::Transform3D>(container, description, osg::Transform3D::MatrixFieldId) &&
            !isField<osg::Image>(container, description, osg::Image::ParentsFieldId));
}

ksSavedFields::Reference ksSavedFields::referenceOf(const osg::FieldContainerPtr &container,
                                                    const osg::FieldDescription &description)
{
    if (isField<osg::ConstraintObject>(container, description, osg::ConstraintObject::NodeIdFieldId))
        return Reference::Id;
    const osg::Field &field = *container->getField(description.getFieldId());
    if (!ksFieldReferences::arePossibleIn(field))
        return Reference::None;
    if (field.getType() == osg::SFAttachmentMap::getClassType())
        return Reference::Attachments;
    if (isField<osg::Node>(container, description, osg::Node::CoreFieldId))
        return Reference::Core;
    if (isField<osg::Node>(container, description, osg::Node::ChildrenFieldId))
        return Reference::Children;
    if (isParents(container, description))
        return Reference::Parents;
    if (isField<osg::SimpleTexturedMaterial>(container, description,
                                             osg::SimpleTexturedMaterial::ImageFieldId))
        return Reference::Texture;
    return isField<osg::Light>(container, description, osg::Light::BeaconFieldId) ? Reference::Uncounted
                                                                                  : Reference::Counted;
}
