// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachment.h>

OSG_BEGIN_NAMESPACE

#define OSG_ATTACHMENT_CONTAINER_FIELDS(SF, MF) SF(SFAttachmentMap, attachments, Attachments, AttachmentMap())

OSG_ABSTRACT_CONTAINER_BASE(AttachmentContainer, FieldContainer, OSG_ATTACHMENT_CONTAINER_FIELDS)

/// A container that holds attachments, one for each group and binding.
class AttachmentContainer : public AttachmentContainerBase
{
    OSG_CONTAINER_MEMBERS(AttachmentContainer)

public:
    /// Attaches @p attachment in its group, in place of the one that has the binding. Takes a reference and
    /// edits the attachments' parents; the edit of this container's attachments is up to the caller. Null
    /// does nothing.
    void addAttachment(const AttachmentPtr &attachment, UInt16 binding = 0);

    /// Detaches what is attached in the group of @p attachment with that binding, which need not be the same,
    /// and releases the reference, which may destroy it; edits as in addAttachment(). Does nothing if there
    /// is none.
    void subAttachment(const AttachmentPtr &attachment, UInt16 binding = 0);

    /// Null if there is none.
    AttachmentPtr findAttachment(UInt32 groupId, UInt16 binding = 0) const;
    AttachmentPtr findAttachment(const FieldContainerType &type, UInt16 binding = 0) const;

    /// A copy has the same attachments.
    void onCreate(const FieldContainer *source = nullptr) override;
    void onCreateAspect(const FieldContainer *created, const FieldContainer *source = nullptr) override;

protected:
    AttachmentContainer(void) = default;
    AttachmentContainer(const AttachmentContainer &source);
    ~AttachmentContainer(void) override;

private:
    using Inherited::setAttachments;

    static UInt32 keyOf(UInt32 groupId, UInt16 binding) { return groupId << 16 | binding; }
};

OSG_END_NAMESPACE
