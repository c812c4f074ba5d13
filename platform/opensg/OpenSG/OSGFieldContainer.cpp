// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGLog.h>

#include <string>

OSG_BEGIN_NAMESPACE

FieldContainerType FieldContainer::_type("FieldContainer", nullptr, nullptr, nullptr, nullptr, nullptr, 0);

__thread FieldContainer::Place FieldContainer::_nextPlace;

FieldContainer::FieldContainer(void)
    : _place(_nextPlace)
{}

FieldContainer::FieldContainer(const FieldContainer &)
    : _place(_nextPlace)
{}

Field *FieldContainer::getField(UInt32 fieldId)
{
    const FieldDescription *description = getType().getFieldDescription(fieldId);
    return description != nullptr ? description->getField(*this) : nullptr;
}

Field *FieldContainer::getField(const Char8 *fieldName)
{
    const FieldDescription *description = getType().findFieldDescription(fieldName);
    return description != nullptr ? description->getField(*this) : nullptr;
}

void FieldContainer::changed(BitVector, UInt32)
{}

void FieldContainer::dump(UInt32 indent, const BitVector whichField) const
{
    const FieldContainerPtr self(*this);
    const std::string start(indent, ' ');
    logNotice(start + getTypeName() + ' ' + std::to_string(self.getFieldContainerId()));
    for (UInt32 id = 1; id <= getType().getNumFieldDescs(); ++id) {
        const FieldDescription &description = *getType().getFieldDescription(id);
        const bool isWanted =
            whichField == FieldBits::NoField || (whichField & description.getFieldMask()) != 0;
        const Field *field = isWanted ? description.getField(self) : nullptr;
        if (field != nullptr) {
            std::string value;
            logNotice(start + "  " + description.getCName() + ": " + field->getValueByStr(value));
        }
    }
}

void FieldContainer::onCreate(const FieldContainer *)
{}

void FieldContainer::onCreateAspect(const FieldContainer *, const FieldContainer *)
{}

void FieldContainer::onDestroy(void)
{}

void FieldContainer::executeSync(FieldContainer &, const BitVector &)
{}

void FieldContainer::announce(FieldContainerPtrBase &fc, UInt16 containerSize)
{
    fc = FieldContainerPtrBase::allocate(containerSize);
    fc.header().id = FieldContainerFactory::the()->registerFieldContainer(FieldContainerPtr(fc));
    if (ChangeList *changes = Thread::getCurrentChangeList()) {
        changes->addCreated(fc.getFieldContainerId());
    }
}

void FieldContainer::finish(const FieldContainerPtrBase &fc, const FieldContainer *source)
{
    FieldContainer *const first = fc.copyOf(0);
    {
        const AspectScope scope(0);
        first->onCreate(source);
    }
    for (UInt32 aspect = 0; aspect < OSG_NUM_ASPECTS; ++aspect) {
        const AspectScope scope(aspect);
        fc.copyOf(aspect)->onCreateAspect(first, source);
    }
}

OSG_END_NAMESPACE
