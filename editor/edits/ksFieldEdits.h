// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksMerging.h>

#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QString>
#include <QVariant>

/// The edits of single fields that the editor offers, whatever the field's type.
///
/// A value is a number; a bool for a bool field; a text for a text field; a list of texts for a list of them;
/// a list of numbers for a vector, a point or a colour. Integers of 64 bits may be given as text.
///
/// All throw ksEditorError, which says why, when the container has no such field, the field is of a type that
/// cannot be edited, or the value does not fit it or makes no sense for it.
namespace ksFieldEdits {

/// The command that sets the field of \a container called \a field to \a value. The caller owns the command
/// unless there is a \a parent.
ksFieldBaseUndoCommand *make(const QString &text, const osg::FieldContainerPtr &container,
                             const QString &field, const QVariant &value, ksMerging merging,
                             QUndoCommand *parent = nullptr);

/// Whether that field holds \a value already.
bool holds(const osg::FieldContainerPtr &container, const QString &field, const QVariant &value);

/// The text of an edit of \a container's field \a field that has been given none.
QString defaultText(const osg::FieldContainerPtr &container, const QString &field);

} // namespace ksFieldEdits
