// SPDX-License-Identifier: MIT
#include <ksundo/field/ksStringFieldUndoCommand.h>

ksStringFieldUndoCommand::ksStringFieldUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                                   ksFieldKey field, std::string newValue,
                                                   QUndoCommand *parent)
    : ksTextFieldUndoCommand(text, container, field, std::move(newValue), parent)
{}
