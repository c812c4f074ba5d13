// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>

#include <ksNodeUtils.h>

#include <utility>

ksTransformVariantMoveCommand::ksTransformVariantMoveCommand(osg::NodePtr node, QUndoCommand *parent,
                                                             Notification notification)
    : ksUndoCommand(QStringLiteral("Move transform variant '%1'").arg(NodeUtils::getText(node)), parent)
    , nodeId(node.getFieldContainerId())
    , notification(std::move(notification))
{}

ksTransformVariantMoveCommand::ksTransformVariantMoveCommand(osg::NodePtr node, int from, int to,
                                                             QUndoCommand *parent, Notification notification)
    : ksTransformVariantMoveCommand(node, parent, std::move(notification))
{
    // Negative indexes become large ones and are out of range.
    const osg::UInt32 count = ksNodeUtils::getTransformVariantCount(node);
    if (static_cast<osg::UInt32>(to) >= count || static_cast<osg::UInt32>(from) >= count)
        return;
    const osg::TransformVariantPtr variant =
        ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(from));
    if (variant != osg::NullFC)
        record(variant, from, to);
}

ksTransformVariantMoveCommand::ksTransformVariantMoveCommand(osg::NodePtr node,
                                                             const std::vector<int> &indexes, int to,
                                                             QUndoCommand *parent, Notification notification)
    : ksTransformVariantMoveCommand(node, parent, std::move(notification))
{
    const osg::UInt32 count = ksNodeUtils::getTransformVariantCount(node);
    if (static_cast<osg::UInt32>(to) >= count || indexes.size() + static_cast<std::size_t>(to) > count)
        return;
    int position = to;
    for (const int index : indexes) {
        const osg::TransformVariantPtr variant =
            ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(index));
        if (variant != osg::NullFC)
            record(variant, index, position++);
    }
}

void ksTransformVariantMoveCommand::undo()
{
    move(newPositions, oldPositions, indexMoves.values(), indexMoves.keys());
}

void ksTransformVariantMoveCommand::redo()
{
    move(oldPositions, newPositions, indexMoves.keys(), indexMoves.values());
}

bool ksTransformVariantMoveCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksTransformVariantMoveCommand::record(const osg::TransformVariantPtr &variant, int from, int to)
{
    indexMoves[from] = to;
    oldPositions[from] = variant.getFieldContainerId();
    newPositions[to] = variant.getFieldContainerId();
}

void ksTransformVariantMoveCommand::move(const Positions &from, const Positions &to, const QList<int> &before,
                                         const QList<int> &after) const
{
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (node == osg::NullFC)
        return;

    std::multimap<unsigned int, ksHeldReference<osg::TransformVariantPtr>> held; // one per place taken from
    for (auto entry = from.rbegin(); entry != from.rend(); ++entry) {
        const auto [index, id] = *entry;
        const auto variant = ksFindContainer<osg::TransformVariantPtr>(id);
        if (variant == osg::NullFC)
            continue;
        held.emplace(id, variant);
        ksNodeUtils::removeTransformVariant(node, index);
    }
    for (const auto [index, id] : to) {
        const auto variant = ksFindContainer<osg::TransformVariantPtr>(id);
        if (variant == osg::NullFC)
            continue;
        ksNodeUtils::insertTransformVariant(node, static_cast<unsigned long>(index), variant);
        if (const auto reference = held.find(id); reference != held.end())
            held.erase(reference);
    }
    notification(nodeId, before, after);
}
