// SPDX-License-Identifier: MIT
#include <OpenSG/OSGSimpleAttachments.h>

OSG_BEGIN_NAMESPACE

template class SimpleAttachment<NameAttachmentDesc>;

namespace {

// So that fields of the handle can be made by name at once.
[[maybe_unused]] const FieldType *const namePtrFieldTypes[] = {&SFNamePtr::getClassType(),
                                                               &MFNamePtr::getClassType()};

NamePtr nameOf(const AttachmentContainerPtr &container)
{
    if (container == NullFC) {
        return NullFC;
    }
    return NamePtr::dcast(container->findAttachment(Name::getClassType()));
}

} // namespace

const Char8 *getName(AttachmentContainerPtr container)
{
    const NamePtr name = nameOf(container);
    return name != NullFC ? name->getFieldPtr()->getValue().c_str() : nullptr;
}

void setName(AttachmentContainerPtr container, const std::string &text)
{
    if (container == NullFC) {
        return;
    }
    NamePtr name = nameOf(container);
    if (name == NullFC) {
        name = Name::create();
        const CPEditor edit(container, AttachmentContainer::AttachmentsFieldMask);
        container->addAttachment(name);
    }
    const CPEditor edit(name);
    name->getFieldPtr()->setValue(text);
}

void setName(AttachmentContainerPtr container, const Char8 *text)
{
    if (text != nullptr) {
        setName(container, std::string(text));
        return;
    }
    const NamePtr name = nameOf(container);
    if (name != NullFC) {
        container->subAttachment(name);
    }
}

OSG_END_NAMESPACE
