// SPDX-License-Identifier: MIT
#include <ksundo/core/ksTouch.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

ksBoolFieldUndoCommand::ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               const std::string &fieldName, bool value, QUndoCommand *parent)
    : ksFieldBaseUndoCommand(text, container, fieldName, parent)
    , value(value)
{}

ksBoolFieldUndoCommand::ksBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string &fieldName,
                                               bool value, QUndoCommand *parent)
    : ksBoolFieldUndoCommand(QString(), container, fieldName, value, parent)
{}

ksBoolFieldUndoCommand::ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               int fieldId, bool value, QUndoCommand *parent)
    : ksFieldBaseUndoCommand(text, container, fieldId, parent)
    , value(value)
{}

ksBoolFieldUndoCommand::ksBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value,
                                               QUndoCommand *parent)
    : ksBoolFieldUndoCommand(QString(), container, fieldId, value, parent)
{}

void ksBoolFieldUndoCommand::undo()
{
    apply();
}

void ksBoolFieldUndoCommand::redo()
{
    apply();
}

bool ksBoolFieldUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksBoolFieldUndoCommand::apply()
{
    const auto container = ksFindContainer<osg::FieldContainerPtr>(fcId);
    apply<bool, 2>(container) || apply<long long>(container) || apply<unsigned long long>(container) ||
        apply<int>(container) || apply<unsigned int>(container) || apply<short>(container) ||
        apply<unsigned short>(container) || apply<signed char>(container) || apply<unsigned char>(container);
}

template <class T, osg::Int32 fieldNamespace>
bool ksBoolFieldUndoCommand::apply(osg::FieldContainerPtr container)
{
    auto *field = fieldOf<osg::SField<T, fieldNamespace>>(container);
    if (field == nullptr)
        return false;
    const bool previous = field->getValue() != T(0);
    field->setValue(T(value));
    ksTouch(container, fieldMask);
    value = previous;
    return true;
}
