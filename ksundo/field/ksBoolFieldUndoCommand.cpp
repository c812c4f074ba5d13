// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

ksBoolFieldUndoCommand::ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               ksFieldKey field, bool value, QUndoCommand *parent)
    : ksNonMergingUndoCommand(text, container, field, parent)
    , value(value)
{}

void ksBoolFieldUndoCommand::apply()
{
    const auto container = ksFindContainer<osg::FieldContainerPtr>(fcId);
    osg::Field *field = ksDetail::ksFindField(container, fieldId);
    apply<bool, 2>(container, field) || apply<long long>(container, field) ||
        apply<unsigned long long>(container, field) || apply<int>(container, field) ||
        apply<unsigned int>(container, field) || apply<short>(container, field) ||
        apply<unsigned short>(container, field) || apply<signed char>(container, field) ||
        apply<unsigned char>(container, field);
}

template <class T, osg::Int32 fieldNamespace>
bool ksBoolFieldUndoCommand::apply(const osg::FieldContainerPtr &container, osg::Field *field)
{
    auto *flag = ksDetail::ksFieldCast<osg::SField<T, fieldNamespace>>(field);
    if (flag == nullptr)
        return false;
    const bool previous = flag->getValue() != T(0);
    flag->setValue(T(value));
    ksEndEdit(container, fieldMask);
    value = previous;
    return true;
}
