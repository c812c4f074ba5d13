// SPDX-License-Identifier: MIT
#include <OpenSG/OSGAttachmentContainer.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_ABSTRACT_CONTAINER(AttachmentContainer, FieldContainer, "", OSG_ATTACHMENT_CONTAINER_FIELDS)

namespace {

void attach(const AttachmentPtr &attachment, const FieldContainerPtr &container)
{
    const CPEditor edit(attachment, Attachment::ParentsFieldMask);
    attachment->addParent(container);
}

/// Lets go of an attachment that the container has taken out of its map, or is about to.
void detach(AttachmentPtr attachment, const FieldContainerPtr &container)
{
    {
        const CPEditor edit(attachment, Attachment::ParentsFieldMask);
        attachment->subParent(container);
    }
    subRefCP(attachment);
}

} // namespace

AttachmentContainer::AttachmentContainer(const AttachmentContainer &source)
    : Inherited(source)
{
    _sfAttachments.getValue().clear();
}

AttachmentContainer::~AttachmentContainer(void)
{
    const FieldContainerPtr self(*this);
    for (const auto &[key, attachment] : _sfAttachments.getValue()) {
        detach(attachment, self);
    }
}

void AttachmentContainer::onCreate(const FieldContainer *source)
{
    Inherited::onCreate(source);
    if (source != nullptr) {
        for (const auto &[key, attachment] :
             static_cast<const AttachmentContainer *>(source)->_sfAttachments.getValue()) {
            addAttachment(attachment, static_cast<UInt16>(key));
        }
    }
}

void AttachmentContainer::onCreateAspect(const FieldContainer *created, const FieldContainer *source)
{
    Inherited::onCreateAspect(created, source);
    if (created == this || source == nullptr) {
        return;
    }
    _sfAttachments.setValue(static_cast<const AttachmentContainer *>(created)->_sfAttachments);
    for (const auto &[key, attachment] : _sfAttachments.getValue()) {
        addRefOfCopy(attachment);
        attachment->addParent(FieldContainerPtr(*this));
    }
}

void AttachmentContainer::addAttachment(const AttachmentPtr &attachment, UInt16 binding)
{
    if (attachment == NullFC) {
        return;
    }
    const FieldContainerPtr self(*this);
    addRefCP(attachment);
    attach(attachment, self);
    AttachmentPtr &slot = _sfAttachments.getValue()[keyOf(attachment->getGroupId(), binding)];
    const AttachmentPtr previous = slot;
    slot = attachment;
    if (previous != NullFC) {
        detach(previous, self);
    }
}

void AttachmentContainer::subAttachment(const AttachmentPtr &attachment, UInt16 binding)
{
    if (attachment == NullFC) {
        return;
    }
    AttachmentMap &attachments = _sfAttachments.getValue();
    const auto found = attachments.find(keyOf(attachment->getGroupId(), binding));
    if (found == attachments.end()) {
        return;
    }
    const AttachmentPtr previous = found->second;
    attachments.erase(found);
    detach(previous, FieldContainerPtr(*this));
}

AttachmentPtr AttachmentContainer::findAttachment(UInt32 groupId, UInt16 binding) const
{
    const AttachmentMap &attachments = _sfAttachments.getValue();
    const auto found = attachments.find(keyOf(groupId, binding));
    return found != attachments.end() ? found->second : AttachmentPtr();
}

AttachmentPtr AttachmentContainer::findAttachment(const FieldContainerType &type, UInt16 binding) const
{
    return findAttachment(type.getGroupId(), binding);
}

OSG_END_NAMESPACE
