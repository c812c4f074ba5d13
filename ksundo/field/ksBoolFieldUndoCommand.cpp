// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

#include <optional>

namespace {

/// Writes \a value into \a field and returns what that held.
template <class T, osg::Int32 fieldNamespace>
bool exchange(osg::SField<T, fieldNamespace> &field, bool value)
{
    const bool previous = field.getValue() != T(0);
    field.setValue(T(value));
    return previous;
}

/// The same for a field of one of the classes \a Fields; nothing for another, and for null.
template <class... Fields>
std::optional<bool> exchangeAnyOf(osg::Field *field, bool value)
{
    std::optional<bool> previous;
    if (field == nullptr)
        return previous;
    const osg::FieldType &type = field->getType();
    ((type == Fields::getClassType() &&
      (previous = exchange(static_cast<Fields &>(*field), value)).has_value()) ||
     ...);
    return previous;
}

constexpr auto exchangeFlag =
    &exchangeAnyOf<osg::SField<bool, 2>, osg::SField<int>, osg::SField<unsigned int>, osg::SField<osg::Int64>,
                   osg::SField<osg::UInt64>, osg::SField<short>, osg::SField<unsigned short>,
                   osg::SField<signed char>, osg::SField<unsigned char>>;

} // namespace

ksBoolFieldUndoCommand::ksBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               ksFieldKey field, bool value, QUndoCommand *parent)
    : ksNonMergingUndoCommand(text, container, field, parent)
    , value(value)
{}

void ksBoolFieldUndoCommand::write(bool newValue, std::optional<bool> &previous) const
{
    const auto container = ksFindContainer<osg::FieldContainerPtr>(fcId);
    previous = exchangeFlag(ksDetail::ksFindField(container, fieldId), newValue);
    if (previous)
        ksEndEdit(container, fieldMask);
}

void ksBoolFieldUndoCommand::apply()
{
    std::optional<bool> previous;
    std::optional<bool> written;
    ksDetail::ksStep([&] { write(value, previous); }, [&] { write(previous.value_or(value), written); });
    value = previous.value_or(value);
}
