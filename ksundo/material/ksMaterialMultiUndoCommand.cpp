// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/material/ksMaterialMultiUndoCommand.h>

ksMaterialMultiUndoCommand::ksMaterialMultiUndoCommand(const QString &text, osg::FieldContainerPtr material,
                                                       osg::FieldContainerPtr componentSettings)
    : ksMultiCommand(text)
    , ksContainerContext(material, componentSettings)
{}

void ksMaterialMultiUndoCommand::undo()
{
    ksMultiCommand::undo();
    ksDetail::ksTell([this] { touchMaterial(); }, [this] { ksMultiCommand::redo(); });
}

void ksMaterialMultiUndoCommand::redo()
{
    ksMultiCommand::redo();
    ksDetail::ksTell([this] { touchMaterial(); }, [this] { ksMultiCommand::undo(); });
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
