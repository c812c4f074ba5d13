// SPDX-License-Identifier: MIT
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>

ksAddTransformVariantUndoCommand::ksAddTransformVariantUndoCommand(osg::NodePtr node,
                                                                   osg::TransformVariantPtr variant,
                                                                   unsigned long index, QUndoCommand *parent,
                                                                   Notification notification)
    : ksTransformVariantListUndoCommand(QStringLiteral("Insert transform variant '%1'"), node, index, parent,
                                        std::move(notification))
{
    this->variant = ksHeldReference(variant);
}

void ksAddTransformVariantUndoCommand::undo()
{
    change(true, [this](const osg::NodePtr &node) {
        removeFrom(node, attachment.get() != osg::NullFC);
        return true;
    });
}

void ksAddTransformVariantUndoCommand::redo()
{
    change(false, [this](const osg::NodePtr &node) { return insertInto(node); });
}
