// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksHandles.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksNonMergingUndoCommand.h>

#include <OSGTransformVariant.h>
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGNode.h>
#include <ksNodeUtils.h>

#include <functional>

namespace ksDetail {

/// Base class of the commands that add one variant to a node's list of transform variants, or remove one. It
/// holds the references by which variant and attachment survive while they are out of the scene.
class KSUNDO_EXPORT ksTransformVariantListUndoCommand : public ksNonMergingUndoCommand<>
{
public:
    /// Receives the node's id and the index, after every step, whatever its direction.
    using Notification = std::function<void(unsigned int, int)>;

protected:
    /// \param text what the history shows, with %1 for the node's name
    ksTransformVariantListUndoCommand(const QString &text, const osg::NodePtr &node, unsigned long index,
                                      QUndoCommand *parent, Notification notification);

    /// Calls \a edit with the node, unless that has gone, and notifies when it answers that it did something.
    /// Throws std::bad_function_call then when there is no notification. When the application throws, the
    /// variant is in the list again, or is not, as \a wasIn says it was.
    template <class Edit>
    void change(bool wasIn, Edit edit)
    {
        const auto node = ksFindContainer<osg::NodePtr>(nodeId);
        if (node == osg::NullFC)
            return;
        const bool hadAttachment = ksNodeUtils::getTransformVariantsAttachment(node) != osg::NullFC;
        const auto step = [&] {
            if (edit(node))
                ksNotify(notification, nodeId, static_cast<int>(index));
        };
        ksStep(step, [&] { restore(wasIn, hadAttachment); });
    }

    /// Inserts the variant into the list of \a node, which gets the attachment, or a new one that becomes the
    /// attachment, when it has none. False when the variant has gone.
    bool insertInto(const osg::NodePtr &node);

    /// Removes what stands at the index and, when \a withAttachment, the node's attachment after the last
    /// one.
    void removeFrom(const osg::NodePtr &node, bool withAttachment) const;

private:
    void restore(bool wasIn, bool hadAttachment);

    osg::UInt32 nodeId;
    unsigned long index;
    Notification notification;

protected:
    // Members go in reverse order: the variant is released before the attachment.
    ksHeldReference<osg::TransformVariantsAttachmentPtr> attachment;
    ksHeldReference<osg::TransformVariantPtr> variant;
};

} // namespace ksDetail
