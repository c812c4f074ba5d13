// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksTouch.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>

/// Sets a numeric field, an osg::SField<T>, of one container.
///
/// Redo and undo are the same exchange of the field's value with the stored one. Commands on the same field
/// merge within the merge window; one undo then restores the value from before the first of them. A field of
/// any other class is left alone.
///
/// \tparam T long long, int, short, signed char, the unsigned type of each, float or double
template <class T>
class ksFieldUndoCommand : public ksFieldBaseUndoCommand
{
    KS_UNDO_COMMAND(ksFieldUndoCommand)

public:
    /// Sets the field of \a container called \a fieldName to \a value when it is run, and not before.
    ksFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, const std::string &fieldName,
                       T value, QUndoCommand *parent = nullptr)
        : ksFieldBaseUndoCommand(text, container, fieldName, parent)
        , value(value)
    {}

    /// Sets the field of \a container with the id \a fieldId, counted from 1.
    ksFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, int fieldId, T value,
                       QUndoCommand *parent = nullptr)
        : ksFieldBaseUndoCommand(text, container, fieldId, parent)
        , value(value)
    {}

    void undo() override { redo(); }

    void redo() override
    {
        const auto [container, field] = getField();
        if (field == nullptr)
            return;
        const T previous = field->getValue();
        field->setValue(value);
        ksTouch(container, fieldMask);
        value = previous;
    }

    bool mergeWith(const QUndoCommand *other) override { return absorb(other); }

    /// The container, NullFC when it is gone, and its field, null when there is none of this command's class.
    std::pair<osg::FieldContainerPtr, osg::SField<T> *> getField() const
    {
        return findTarget<osg::SField<T>>();
    }

private:
    /// What the next redo or undo writes.
    T value;
};

extern template class KSUNDO_EXPORT ksFieldUndoCommand<long long>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned long long>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<int>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned int>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<short>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned short>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<signed char>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned char>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<float>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<double>;
