// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksHeldReference.h>

#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGNode.h>
#include <ksNodeUtils.h>

#include <functional>
#include <utility>

/// A place in a node's list of transform variants, as the commands that add and remove one have it in common,
/// with the references by which the variant and the attachment survive while they are out of the scene.
struct ksTransformVariantPlace
{
    /// Receives the node's id and the index, after every step, whatever its direction.
    using Notification = std::function<void(unsigned int, int)>;

    ksTransformVariantPlace(const osg::NodePtr &node, unsigned long index, Notification notification)
        : nodeId(node.getFieldContainerId())
        , index(index)
        , notification(std::move(notification))
    {}

    osg::NodePtr findNode() const { return ksFindContainer<osg::NodePtr>(nodeId); }

    void removeFrom(const osg::NodePtr &node) const
    {
        ksNodeUtils::removeTransformVariant(node, static_cast<int>(index));
    }

    /// Throws std::bad_function_call when there is no notification.
    void notify() const { notification(nodeId, static_cast<int>(index)); }

    osg::UInt32 nodeId;
    unsigned long index;
    Notification notification;

    // Members go in reverse order: the variant is released before the attachment.
    ksHeldReference<osg::TransformVariantsAttachmentPtr> attachment;
    ksHeldReference<osg::TransformVariantPtr> variant;
};
