// SPDX-License-Identifier: MIT
#include <ksundo/material/ksColorComponentUndoCommand.h>

ksColorComponentUndoCommand::ksColorComponentUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                                                         osg::FieldContainerPtr component,
                                                         osg::FieldContainerPtr parentContainer,
                                                         QUndoCommand *parent)
    : ksWrappedFieldUndoCommand(text, command, component, parentContainer, parent)
{}

void ksColorComponentUndoCommand::makeMessage(ksMessage &message) const
{
    ksWrappedFieldUndoCommand::makeMessage(message);
    addContext(message, "component", "parent");
}
