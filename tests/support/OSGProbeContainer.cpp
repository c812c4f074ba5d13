// SPDX-License-Identifier: MIT
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGThread.h>

#include <support/OSGProbeContainer.h>
#include <utility>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ProbeContainer, FieldContainer, "", OSG_PROBE_CONTAINER_FIELDS)

namespace {

std::vector<ProbeContainer::Call> calls;

} // namespace

void ProbeContainer::changed(BitVector whichField, UInt32 origin)
{
    std::string value;
    for (UInt32 id = 1; id < NextFieldId; ++id)
        if (whichField == TypeTraits<BitVector>::One << id)
            getField(id)->getValueByStr(value);
    const ChangeList *changes = PThreadBase::getCurrentChangeList();
    calls.push_back({whichField, origin, value, changes == nullptr ? 0 : changes->sizeChanged()});
    Inherited::changed(whichField, origin);
}

std::vector<ProbeContainer::Call> ProbeContainer::takeCalls()
{
    return std::exchange(calls, {});
}

OSG_END_NAMESPACE
