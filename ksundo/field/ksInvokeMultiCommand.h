// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/detail/ksInvokedMethod.h>

/// Several commands as one step, followed by a call of a Qt method of the application without arguments: the
/// same one after redo and after undo.
///
/// When there is no such method, "Method not found: class::signature" is logged at construction, and only the
/// children run. A call that Qt refuses is logged as "Could not invoke: class::signature"; what the children
/// did stays. When two such commands merge, the method of the older one is called.
class KSUNDO_EXPORT ksInvokeMultiCommand : public ksMultiCommand
{
    KS_UNDO_COMMAND(ksInvokeMultiCommand)

public:
    /// Calls \a method, its name and parameter types in parentheses, such as "update()", of \a object.
    /// Neither may be null; the object is neither owned nor watched, and must live as long as the command may
    /// be undone or redone.
    ksInvokeMultiCommand(const QString &text, QObject *object, const char *method);

    void undo() override; ///< undoes the children, then calls the method
    void redo() override; ///< redoes the children, then calls the method

private:
    ksDetail::ksInvokedMethod method;
};
