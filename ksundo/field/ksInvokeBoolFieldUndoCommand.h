// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/detail/ksInvokedMethod.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

/// Switches a flag as ksBoolFieldUndoCommand does, and tells a Qt method of the application.
///
/// Every redo writes the field, then calls the method with the value written, which happens also when the
/// field cannot be found. **Undo does nothing**: it neither restores the field nor calls the method. Redoing
/// afterwards writes what the field held before the first redo, and so on.
///
/// A method with exactly one parameter, a bool or an integer, receives the value; any other is called without
/// arguments, which Qt refuses where it needs some. A parameter of a type that Qt does not know, as when it
/// is not registered, must be another name of one of these. When there is no such method, "Method not found:
/// class::signature" is logged at construction, and only the field is written. A call that Qt refuses is
/// logged as "Could not invoke: class::signature"; the field stays written.
class KSUNDO_EXPORT ksInvokeBoolFieldUndoCommand : public ksBoolFieldUndoCommand
{
    KS_UNDO_COMMAND(ksInvokeBoolFieldUndoCommand)

public:
    /// Sets the field \a field of \a container, by name or by id, to \a value when it is run, not before, and
    /// calls \a method, its name and parameter types in parentheses, such as "setVisible(bool)", of \a
    /// object. Neither of these two may be null; the object is neither owned nor watched, and must live as
    /// long as the command may be redone.
    ksInvokeBoolFieldUndoCommand(const QString &text, osg::FieldContainerPtr container, ksFieldKey field,
                                 bool value, QObject *object, const char *method,
                                 QUndoCommand *parent = nullptr);

    /// The same, with an empty text.
    ksInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, ksFieldKey field, bool value,
                                 QObject *object, const char *method, QUndoCommand *parent = nullptr)
        : ksInvokeBoolFieldUndoCommand(QString(), container, field, value, object, method, parent)
    {}

    void undo() override {} ///< nothing
    void redo() override;   ///< writes the field, then calls the method
    bool mergeWith(const QUndoCommand *other) override { return absorb(other); } ///< never

private:
    ksDetail::ksInvokedMethod method;
};
