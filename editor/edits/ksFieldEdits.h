// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksMerging.h>

#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QString>
#include <QVariant>

/// The edits of single fields that the editor offers, whatever the field's type.
namespace ksFieldEdits {

/// The command that sets the field of \a container called \a field to \a value: a number, or a bool for a
/// bool field. Integers of 64 bits may be given as text. The caller owns the command unless there is a \a
/// parent.
///
/// Throws ksEditorError, which says why, when the container has no such field, the field is of a type that
/// cannot be edited, or the value does not fit it.
ksFieldBaseUndoCommand *make(const QString &text, const osg::FieldContainerPtr &container,
                             const QString &field, const QVariant &value, ksMerging merging,
                             QUndoCommand *parent = nullptr);

/// The text of an edit of \a container's field \a field that has been given none.
QString defaultText(const osg::FieldContainerPtr &container, const QString &field);

} // namespace ksFieldEdits
