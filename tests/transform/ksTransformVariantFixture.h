// SPDX-License-Identifier: MIT
#pragma once

#include "ksTransformFixture.h"

#include <utility>

/// What the tests of the commands that add and remove a variant have in common: child, which has no variants
/// attachment, and a log of notifications, with what they find there.
class ksTransformVariantFixture : public ksTransformFixture
{
protected:
    static constexpr osg::BitVector variantsMask = osg::TransformVariantsAttachment::VariantsFieldMask;
    static constexpr osg::BitVector parentsMask = osg::Attachment::ParentsFieldMask;
    static constexpr osg::BitVector attachmentsMask = osg::Node::AttachmentsFieldMask;

    std::function<void(unsigned int, int)> notification()
    {
        return [this](unsigned int id, int index) {
            EXPECT_EQ(id, childId);
            notified.push_back(std::to_string(index) + ": " + order());
        };
    }

    /// The variants of child; none without an attachment.
    std::string order() const
    {
        return attachment() == osg::NullFC ? "none" : '[' + ksTransformFixture::order(child) + ']';
    }

    osg::TransformVariantsAttachmentPtr attachment() const
    {
        return ksNodeUtils::getTransformVariantsAttachment(child);
    }

    osg::TransformVariantPtr at(unsigned long index) const
    {
        return ksNodeUtils::getTransformVariant(child, index);
    }

    /// What it records to attach, and to detach, the attachment with the record id \a id.
    ksRecords attaching(long long id) const { return attachmentEdits(id).addRef(id); }
    ksRecords detaching(long long id) const { return attachmentEdits(id).subRef(id); }

    /// Takes child out of the scene, which destroys it.
    void destroyChild()
    {
        {
            const osg::CPEditor edit(node, osg::Node::ChildrenFieldMask);
            node->subChild(child);
        }
        child = osg::NullFC;
        ASSERT_EQ(ksFindContainer<osg::FieldContainerPtr>(childId), osg::NullFC);
    }

    ksTransformEvents take() { return std::exchange(notified, {}); }

    const osg::UInt32 childId{child.get().getFieldContainerId()};
    ksTransformEvents notified;

private:
    ksRecords attachmentEdits(long long id) const
    {
        return ksRecords().change(id, parentsMask).change(recorder.idOf(child), attachmentsMask);
    }
};
