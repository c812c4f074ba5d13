// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGFieldDescription.h>

/// What of a container has to be kept when the scene is in a file: every field, but for those that follow
/// from others. A new container class, or field, needs a line here only when it is such an exception.
namespace ksSavedFields {

/// How a field refers to other containers.
enum class Reference
{
    /// Not at all: it has a value.
    None,

    /// By handles, on which the container holds references.
    Counted,

    /// By handles without references.
    Uncounted,

    /// By a number, the id of a container.
    Id,

    /// By the map of attachments.
    Attachments,

    /// By the handle of a node's core, which knows the node.
    Core,

    /// By the handles of a node's children, which know the node.
    Children,

    /// By the handles of those that have it as core or attachment. There they are what makes the reference;
    /// it is their order that nothing else says.
    Parents,

    /// By the handle of an image, which knows the material that it is the texture of.
    Texture
};

/// Whether the field of \a container that \a description is of says anything that other fields do not.
bool isSaved(const osg::FieldContainerPtr &container, const osg::FieldDescription &description);

/// The same field's kind of reference.
Reference referenceOf(const osg::FieldContainerPtr &container, const osg::FieldDescription &description);

/// Calls \a visit with the description of every field of \a container that is saved, and the field.
template <class Visit>
void visit(const osg::FieldContainerPtr &container, Visit &&visit)
{
    const osg::FieldContainerType &type = container->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription &description = *type.getFieldDescription(id);
        if (isSaved(container, description))
            visit(description, *container->getField(id));
    }
}

} // namespace ksSavedFields
