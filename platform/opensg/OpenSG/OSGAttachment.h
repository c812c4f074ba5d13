// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGContainerPtrFieldTypes.h>

OSG_BEGIN_NAMESPACE

typedef DeclaredField<MFFieldContainerPtr, MFNodePtr> AttachmentParentsField;

#define OSG_ATTACHMENT_FIELDS(SF, MF)                           \
    MF(InternalField<AttachmentParentsField>, parents, Parents) \
    SF(SFBool, internal, Internal, false)

OSG_ABSTRACT_CONTAINER_BASE(Attachment, FieldContainer, OSG_ATTACHMENT_FIELDS)

/// Data that can be attached to nodes, cores and other attachment containers, to several of them at once.
class Attachment : public AttachmentBase
{
    OSG_CONTAINER_MEMBERS(Attachment)

public:
    /// True: made by the application for its own use, not part of the scene's content.
    SFBool &getInternal(void) { return _sfInternal; }
    const SFBool &getInternal(void) const { return _sfInternal; }

    /// The containers that this is attached to are kept by those containers. The position is -1 if @p parent
    /// is none.
    void addParent(const FieldContainerPtr &parent);
    void subParent(const FieldContainerPtr &parent);
    Int32 findParent(const FieldContainerPtr &parent) const;

protected:
    Attachment(void) = default;

    /// The copy is attached to nothing.
    Attachment(const Attachment &source);
    ~Attachment(void) override = default;
};

OSG_END_NAMESPACE
