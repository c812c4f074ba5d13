// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksHandles.h>
#include <ksundo/core/ksHeldReference.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>

#include <OSGTransformVariant.h>
#include <ksNodeUtils.h>
#include <ksPlatform.h>

#include <QMap>

#include <algorithm>
#include <cstddef>

namespace {

void insertInto(const osg::NodePtr &node, int index, unsigned int id)
{
    const auto variant = ksFindContainer<osg::TransformVariantPtr>(id);
    if (variant != osg::NullFC)
        ksNodeUtils::insertTransformVariant(node, static_cast<unsigned long>(index), variant);
}

} // namespace

ksTransformVariantMoveCommand::ksTransformVariantMoveCommand(osg::NodePtr node,
                                                             const std::vector<int> &indexes, int to,
                                                             QUndoCommand *parent, Notification notification)
    : ksContainerUndoCommand(QStringLiteral("Move transform variant '%1'").arg(NodeUtils::displayName(node)),
                             node, {}, {}, parent)
    , notification(std::move(notification))
{
    // Negative indexes become large ones and are out of range.
    const osg::UInt32 count = ksNodeUtils::getTransformVariantCount(node);
    if (static_cast<osg::UInt32>(to) >= count || indexes.size() + static_cast<std::size_t>(to) > count)
        return;
    QMap<int, int> moves;
    int position = to;
    for (const int index : indexes) {
        if (static_cast<osg::UInt32>(index) >= count)
            continue;
        const osg::TransformVariantPtr variant =
            ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(index));
        if (variant == osg::NullFC)
            continue;
        before.ids[index] = ksPlatform::idOf(variant);
        after.ids[position] = ksPlatform::idOf(variant);
        moves[index] = position++;
    }
    before.indexes = moves.keys();
    after.indexes = moves.values();
}

/// Some variants may have left their places, and some of these have reached the other ones.
void ksTransformVariantMoveCommand::putBack(const Places &places) const
{
    const auto node = ksFindContainer<osg::NodePtr>(containerId);
    if (node == osg::NullFC)
        return;
    const auto isMoved = [&places](const osg::TransformVariantPtr &variant) {
        return std::any_of(places.ids.begin(), places.ids.end(),
                           [&](const auto &entry) { return entry.second == ksPlatform::idOf(variant); });
    };
    std::vector<ksHeldReference<osg::TransformVariantPtr>> held;
    for (auto index = static_cast<int>(ksNodeUtils::getTransformVariantCount(node)) - 1; index >= 0;
         --index) {
        const auto variant = ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(index));
        if (!isMoved(variant))
            continue;
        held.emplace_back(variant);
        ksDetail::ksTakeBack([&] { ksNodeUtils::removeTransformVariant(node, index); });
    }
    for (const auto &[index, id] : places.ids)
        ksDetail::ksTakeBack([&node, index = index, id = id] { insertInto(node, index, id); });
}

void ksTransformVariantMoveCommand::apply(const osg::NodePtr &node, const Places &from,
                                          const Places &to) const
{
    std::multimap<unsigned int, ksHeldReference<osg::TransformVariantPtr>> held; // one per place taken from
    const auto move = [&] {
        for (auto entry = from.ids.rbegin(); entry != from.ids.rend(); ++entry) {
            const auto [index, id] = *entry;
            const auto variant = ksFindContainer<osg::TransformVariantPtr>(id);
            if (variant == osg::NullFC)
                continue;
            held.emplace(id, variant);
            ksNodeUtils::removeTransformVariant(node, index);
        }
        for (const auto [index, id] : to.ids) {
            insertInto(node, index, id);
            if (const auto reference = held.find(id); reference != held.end())
                held.erase(reference);
        }
        ksDetail::ksNotify(notification, containerId, from.indexes, to.indexes);
    };
    ksDetail::ksStep(move, [&] { putBack(from); });
}
