// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksTransformTour.h>
#include <checker/tour/ksVariantTour.h>
#include <editor/edits/ksTransformEdits.h>

#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <ksNodeUtils.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t VariedAtMost = 2;

std::string namesOf(const osg::NodePtr &node)
{
    std::string names;
    const auto count = static_cast<int>(ksNodeUtils::getTransformVariantCount(node));
    for (int i = 0; i < count; ++i)
        names += (i > 0 ? " " : "") + ksNodeUtils::getTransformVariantName(node, i);
    return names;
}

/// The ids of the node's attachment, which is 0 if there is none, and of its variants.
std::vector<osg::UInt32> idsOf(const osg::NodePtr &node)
{
    std::vector<osg::UInt32> ids = {ksNodeUtils::getTransformVariantsAttachment(node).getFieldContainerId()};
    for (osg::UInt32 i = 0; i < ksNodeUtils::getTransformVariantCount(node); ++i)
        ids.push_back(ksNodeUtils::getTransformVariant(node, i).getFieldContainerId());
    return ids;
}

} // namespace

ksVariantTour::ksVariantTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                             const ksTourExtras &tourExtras, ksTransformTour &transformTour)
    : ksTourPart(checkedHistory, chosenTargets, tourExtras)
    , transforms(transformTour)
{}

void ksVariantTour::run()
{
    for (std::size_t i = 0; i < std::min(VariedAtMost, targets.transforms.size()); ++i)
        visit(targets.transforms[i]);
}

void ksVariantTour::visit(const osg::NodePtr &node)
{
    addVariants(node);
    describeVariants(node);
    moveVariants(node);
    transforms.edit(node, 1);
    removeVariants(node);
}

void ksVariantTour::addVariants(const osg::NodePtr &node)
{
    insert(node, "A", 0, "A");
    insert(node, "B", 1, "A B");
    insert(node, "C", 0, "C A B");
    insert(node, "D", 1, "C D A B");
}

void ksVariantTour::describeVariants(const osg::NodePtr &node)
{
    const osg::TransformVariantPtr variant = ksNodeUtils::getTransformVariant(node, 2);
    edit(node, new ksTransformVariantNameUndoCommand(variant, "E", nullptr, log.writer("named")), "C D E B",
         "named A E", "named E A");
    constexpr osg::UInt64 flags = osg::TransformVariantFlags::Scale | osg::UInt64(1) << 63U;
    edit(node, new ksTransformVariantOptionsUndoCommand(variant, flags, nullptr, log.writer("flagged")),
         "C D E B", "flagged", "flagged");
    history.verify(variant->getApplyFlags() == flags, QStringLiteral("the variant has the new flags"));
}

void ksVariantTour::moveVariants(const osg::NodePtr &node)
{
    const auto expectMove = [this, &node](ksTransformVariantMoveCommand *command, const char *names,
                                          const QList<int> &from, const QList<int> &to) {
        edit(node, command, names, ksCallLog::line("moved", node, from, to),
             ksCallLog::line("moved", node, to, from));
    };
    const auto notification = log.writer("moved");
    expectMove(new ksTransformVariantMoveCommand(node, 0, 2, nullptr, notification), "D E C B", {0}, {2});
    expectMove(new ksTransformVariantMoveCommand(node, {3, 1}, 0, nullptr, notification), "B E D C", {1, 3},
               {1, 0});
    expectMove(new ksTransformVariantMoveCommand(node, {2, 3, 0}, 1, nullptr, notification), "E D C B",
               {0, 2, 3}, {3, 1, 2});
    // These do not fit the list, and move nothing.
    expectMove(new ksTransformVariantMoveCommand(node, 4, 0, nullptr, notification), "E D C B", {}, {});
    expectMove(new ksTransformVariantMoveCommand(node, {0, 1}, 3, nullptr, notification), "E D C B", {}, {});
}

void ksVariantTour::removeVariants(const osg::NodePtr &node)
{
    remove(node, 3, "E D C");
    remove(node, 1, "E C");
    remove(node, 7, "E C");
    remove(node, 0, "C");
    remove(node, 0, "");
    history.verify(ksNodeUtils::getTransformVariantsAttachment(node) == osg::NullFC,
                   QStringLiteral("the attachment goes with the last variant"));
}

void ksVariantTour::insert(const osg::NodePtr &node, const char *name, unsigned long index,
                           const std::string &names)
{
    const std::string call = ksCallLog::line("placed", node, index);
    edit(node,
         new ksAddTransformVariantUndoCommand(node, ksTransformEdits::makeVariant(node, name), index, nullptr,
                                              log.writer("placed")),
         names, call, call);
}

void ksVariantTour::remove(const osg::NodePtr &node, unsigned long index, const std::string &names)
{
    const bool exists = index < ksNodeUtils::getTransformVariantCount(node);
    const std::string call = ksCallLog::line("placed", node, index);
    edit(node, new ksRemoveTransformSwitchVariantUndoCommand(node, index, nullptr, log.writer("placed")),
         names, call, exists ? call : std::string());
}

void ksVariantTour::edit(const osg::NodePtr &node, QUndoCommand *command, const std::string &names,
                         const std::string &call, const std::string &callBack)
{
    const std::string namesBefore = namesOf(node);
    const std::vector<osg::UInt32> idsBefore = idsOf(node);
    add(command, 1);
    const std::vector<osg::UInt32> idsAfter = idsOf(node);
    const auto verifyDone = [&] {
        verifyCalls(log, {call});
        history.verify(namesOf(node) == names,
                       QStringLiteral("the variants are ") + QString::fromStdString(names));
    };
    verifyDone();
    history.undo();
    verifyCalls(log, callBack.empty() ? ksCallLog::Lines() : ksCallLog::Lines{callBack});
    history.verify(namesOf(node) == namesBefore && idsOf(node) == idsBefore,
                   QStringLiteral("the variants and the attachment are back"));
    history.redo();
    verifyDone();
    history.verify(idsOf(node) == idsAfter, QStringLiteral("the same variants and attachment are in place"));
}
