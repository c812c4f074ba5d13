// SPDX-License-Identifier: MIT
#include <OpenSG/OSGAttachment.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_ABSTRACT_CONTAINER(Attachment, FieldContainer, "", OSG_ATTACHMENT_FIELDS)

Attachment::Attachment(const Attachment &source)
    : Inherited(source)
{
    _mfParents.clear();
}

void Attachment::addParent(const FieldContainerPtr &parent)
{
    _mfParents.push_back(parent);
}

void Attachment::subParent(const FieldContainerPtr &parent)
{
    eraseFirst(_mfParents, parent);
}

Int32 Attachment::findParent(const FieldContainerPtr &parent) const
{
    const auto found = _mfParents.find(parent);
    return found != _mfParents.end() ? static_cast<Int32>(found - _mfParents.begin()) : -1;
}

OSG_END_NAMESPACE
