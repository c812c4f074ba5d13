// SPDX-License-Identifier: MIT
#include <ksundo/material/ksMaterialMultiUndoCommand.h>
#include <ksundo/material/ksTouchMaterial.h>

ksMaterialMultiUndoCommand::ksMaterialMultiUndoCommand(const QString &text, osg::FieldContainerPtr material,
                                                       osg::FieldContainerPtr componentSettings)
    : ksMultiCommand(text)
    , ksContainerContext(material, componentSettings)
{}

void ksMaterialMultiUndoCommand::undo()
{
    ksMultiCommand::undo();
    ksTouchMaterial(*this, firstId, secondId);
}

void ksMaterialMultiUndoCommand::redo()
{
    ksMultiCommand::redo();
    ksTouchMaterial(*this, firstId, secondId);
}

bool ksMaterialMultiUndoCommand::mergeWith(const QUndoCommand *other)
{
    return other->id() == id() && isSameContext(*static_cast<const ksMaterialMultiUndoCommand *>(other)) &&
           ksMultiCommand::mergeWith(other);
}

void ksMaterialMultiUndoCommand::makeMessage(ksMessage &message) const
{
    ksMultiCommand::makeMessage(message);
    addContext(message, "material", "componentSettings");
}
