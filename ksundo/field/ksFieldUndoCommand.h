// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <type_traits>

/// Sets a field that has one value, an osg::SField<T>, of one container.
///
/// Redo and undo are the same exchange of the field's value with the stored one. Commands on the same field
/// merge within the merge window; one undo then restores the value from before the first of them. A field of
/// any other class is left alone, and so is a container that has gone.
///
/// \tparam T any type with a field class osg::SField<T>: numbers of every width, of which the library brings
/// the instances, and the scene graph's vectors and colours as well. Not for handles, whose containers a
/// field has to hold, nor for flags, which have the ksBoolFieldUndoCommand.
template <class T>
class ksFieldUndoCommand : public ksFieldBaseUndoCommand
{
    KS_UNDO_COMMAND(ksFieldUndoCommand)

    static_assert(!std::is_base_of_v<osg::FieldContainerPtrBase, T>, "a field of handles holds references");
    static_assert(!std::is_same_v<T, bool>, "flags have ksBoolFieldUndoCommand");
    static_assert(std::is_copy_constructible_v<T> && std::is_copy_assignable_v<T>, "T must be copyable");

public:
    /// Sets the field \a field of \a container, by name or by id, to \a value when it is run, not before.
    ksFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field, T value,
                       QUndoCommand *parent = nullptr)
        : ksFieldBaseUndoCommand(text, container, field, parent)
        , value(std::move(value))
    {}

    void undo() override { redo(); } ///< the same exchange as redo()

    /// Exchanges the field's value and the stored one.
    void redo() override;

    /// Takes over the time of \a other; this command already has the value from before both.
    bool mergeWith(const QUndoCommand *other) override { return absorb(other); }

    /// The container, NullFC when it is gone, and its field, null when there is none of this command's class.
    std::pair<osg::FieldContainerPtr, osg::SField<T> *> getField() const;

private:
    using Target = std::pair<osg::FieldContainerPtr, osg::SField<T> *>;

    void write(const Target &target, const T &newValue) const;

    /// What the next redo or undo writes.
    T value;
};

// What asks for a field's class stands outside, so that the instances below have it from the library, and not
// from an application to which the scene graph's templates may be hidden.
template <class T>
std::pair<osg::FieldContainerPtr, osg::SField<T> *> ksFieldUndoCommand<T>::getField() const
{
    return findTarget<osg::SField<T>>();
}

template <class T>
void ksFieldUndoCommand<T>::write(const Target &target, const T &newValue) const
{
    const auto &[container, field] = target;
    if (field == nullptr)
        return;
    field->setValue(newValue);
    ksEndEdit(container, fieldMask);
}

template <class T>
void ksFieldUndoCommand<T>::redo()
{
    const auto target = getField();
    if (target.second == nullptr)
        return;
    T previous = target.second->getValue();
    ksDetail::ksStep([&] { write(target, value); }, [&] { write(getField(), previous); });
    value = std::move(previous);
}

extern template class KSUNDO_EXPORT ksFieldUndoCommand<osg::Int64>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<osg::UInt64>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<int>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned int>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<short>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned short>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<signed char>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<unsigned char>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<float>;
extern template class KSUNDO_EXPORT ksFieldUndoCommand<double>;
