// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksWorldRounding.h>
#include <checker/tour/ksTransformTour.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <ksNodeUtils.h>

#include <set>
#include <string>
#include <vector>

namespace {

/// The classes that call their sync function also for the transforms of variants.
const std::set<std::string> SyncsVariants = {"scalePivot", "rotatePivot", "scalePivotTranslation",
                                             "rotatePivotTranslation"};

/// The last one is not the one that a whole transformation gets.
const std::vector<std::string> Orders = {"XZY", "YXZ", "YZX", "ZXY", "ZYX", "XYZ"};

/// What a drag from \a start has come to at \a event, the first being 0: all components move, each by its own
/// step.
osg::Vec3f dragged(const osg::Vec3f &start, int event)
{
    const float way = static_cast<float>(event + 1) / 16;
    return {start[0] + way, start[1] - 2 * way, start[2] + 3 * way};
}

/// A turn by \a degrees about a slanted axis.
osg::Quaternion slantedTurn(float degrees)
{
    osg::Quaternion turn;
    turn.setValueAsAxisDeg(osg::Vec3f(1, 2, 2), degrees);
    return turn;
}

/// Lets commands of the class \a Command call \a log, as \a name; or nobody when it is null.
template <class Command>
void syncTo(const ksCallLog *log, const char *name)
{
    if (log != nullptr)
        Command::setSyncFunction(log->writer(name));
    else
        Command::setSyncFunction({});
}

void syncAllTo(const ksCallLog *log)
{
    syncTo<ksTranslationUndoCommand>(log, "sync translation");
    syncTo<ksRotationUndoCommand>(log, "sync eulerRotation");
    syncTo<ksScaleUndoCommand>(log, "sync scale");
    syncTo<ksShearUndoCommand>(log, "sync shear");
    syncTo<ksScalePivotUndoCommand>(log, "sync scalePivot");
    syncTo<ksRotationPivotUndoCommand>(log, "sync rotatePivot");
    syncTo<ksScalePivotTranslationUndoCommand>(log, "sync scalePivotTranslation");
    syncTo<ksRotationPivotTranslationUndoCommand>(log, "sync rotatePivotTranslation");
    syncTo<ksRotationPivotOrientationUndoCommand>(log, "sync rotationOrientation");
    syncTo<ksRotationPivotDirectionUndoCommand>(log, "sync rotationDirection");
    syncTo<ksEulerRotationOrderUndoCommand>(log, "sync eulerRotationOrder");
    syncTo<ksTransformationUndoCommand>(log, "sync transformation");
}

} // namespace

ksTransformTour::ksTransformTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                                 const ksTourExtras &tourExtras)
    : ksTourPart(checkedHistory, chosenTargets, tourExtras)
{
    syncAllTo(&log);
}

ksTransformTour::~ksTransformTour()
{
    syncAllTo(nullptr);
}

void ksTransformTour::run()
{
    for (const osg::NodePtr &node : targets.transforms) {
        edit(node, -1);
        dragQuaternion(node);
    }
}

void ksTransformTour::edit(const osg::NodePtr &node, int index)
{
    apply(node, index, true);
    apply(node, index, false);
    for (const ksTransformProperty &property : ksTransformEdits::properties()) {
        if (index >= 0 && !property.hasIndex)
            continue;
        // The axis and the switch of the direction are those that have been applied: undoing leaves them.
        const ksTransformTarget own = {node, index, false, 1, true};
        dragValue(property, own);
        // From a space that is flattened there is no way back.
        const ksTransformTarget inWorld = {node, index, true};
        if (property.hasSpace && ksWorldRounding::isReachable(node))
            dragValue(property, inWorld);
    }
    dragOrder(node, index);
}

void ksTransformTour::apply(const osg::NodePtr &node, int index, bool syncs)
{
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index);
    auto values = ksTransformation::of(transform);
    values.translation += osg::Vec3f(1, 2, 3);
    values.rotation = {10, -20, 30};
    values.scale = {1, 1.5F, syncs ? 2.0F : 0.5F};
    values.inheritType = 2;
    values.eulerRotationOrder = "YZX";
    values.rotationDirectionOn = true;
    values.rotationDirection = {1, 1, 0};
    values.rotationDirectionMode = 1;

    ksCallLog::Lines calls = {ksCallLog::line("applied", index)};
    if (syncs && index == -1)
        calls.push_back(ksCallLog::line("sync transformation", node));
    const auto verifyApplied = [&] {
        history.verify(transform->getScale().isSame(values.scale) && transform->getRotationDirectionOn() &&
                           transform->getEulerRotationOrder() == "YZX" && transform->getInheritType() == 2,
                       QStringLiteral("the whole transformation is applied"));
        verifyCalls(log, calls);
    };
    add(ksTransformEdits::makeApply(node, values, index, syncs, log.writer("applied")), 1);
    verifyApplied();
    history.undo();
    verifyCalls(log, calls);
    history.redo();
    verifyApplied();
}

void ksTransformTour::dragValue(const ksTransformProperty &property, const ksTransformTarget &target)
{
    const auto callsWith = [&](const osg::Vec3f &value) {
        const std::string name = std::string("sync ") + property.name;
        ksCallLog::Lines calls;
        if (property.hasCallback)
            calls.push_back(
                ksCallLog::line("changed", target.node.getFieldContainerId(), value, target.index));
        if (target.index == -1 || SyncsVariants.count(property.name) > 0)
            calls.push_back(property.hasSpace
                                ? ksCallLog::line(name.c_str(), target.node, value, target.world)
                                : ksCallLog::line(name.c_str(), target.node, value));
        return calls;
    };
    const osg::Vec3f before = property.read(target);
    ksCallLog::Lines calls;
    drag(DragEvents, [&](int event) {
        const osg::Vec3f value = dragged(before, event);
        const ksCallLog::Lines more = callsWith(value);
        calls.insert(calls.end(), more.begin(), more.end());
        return ksMergingAs(ksMergingOfEvent(event),
                           property.make(target, value, log.writer("changed"), nullptr));
    });
    verifyCalls(log, calls);

    const osg::Vec3f after = property.read(target);
    const double tolerance = target.world ? ksWorldRounding(property, target, before).inWorld() : 0;
    const auto isNear = [tolerance](const osg::Vec3f &value, const osg::Vec3f &other) {
        return ksWorldRounding::length(value - other) <= tolerance;
    };
    history.verify(isNear(after, dragged(before, DragEvents - 1)), QStringLiteral("the last value is set"));
    history.undo();
    verifyCalls(log, callsWith(before));
    history.verify(isNear(property.read(target), before),
                   QStringLiteral("one undo takes the whole drag back"));
    history.redo();
    verifyCalls(log, callsWith(after));
}

void ksTransformTour::dragOrder(const osg::NodePtr &node, int index)
{
    const auto callsWith = [&](const std::string &order) {
        ksCallLog::Lines calls = {ksCallLog::line("changed", node.getFieldContainerId(), order, index)};
        if (index == -1)
            calls.push_back(ksCallLog::line("sync eulerRotationOrder", node, order));
        return calls;
    };
    const std::string before = ksNodeUtils::getTransformNodeEulerRotationOrder(node, index);
    ksCallLog::Lines calls;
    drag(static_cast<int>(Orders.size()), [&](int event) {
        const std::string &order = Orders[static_cast<std::size_t>(event)];
        const ksCallLog::Lines more = callsWith(order);
        calls.insert(calls.end(), more.begin(), more.end());
        return ksMergingAs(ksMergingOfEvent(event), new ksEulerRotationOrderUndoCommand(
                                                        node, order, nullptr, log.writer("changed"), index));
    });
    verifyCalls(log, calls);
    history.verify(ksNodeUtils::getTransformNodeEulerRotationOrder(node, index) == Orders.back(),
                   QStringLiteral("the last order is set"));
    history.undo();
    verifyCalls(log, callsWith(before));
    history.redo();
    verifyCalls(log, callsWith(Orders.back()));
}

void ksTransformTour::dragQuaternion(const osg::NodePtr &node)
{
    // Undoing a turn that was set as a quaternion calculates the angles anew; these come back as they were.
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, -1);
    const osg::Vec3f noTurn = transform->convertQuatToEuler(osg::Quaternion(), true);
    add(ksMergingAs(ksMerging::Never, new ksRotationUndoCommand(node, noTurn)), 1);
    log.take();
    drag(DragEvents, [&](int event) {
        return ksMergingAs(ksMergingOfEvent(event),
                           new ksRotationAsQuaternionUndoCommand(
                               QStringLiteral("Turn '") + ksContainers::nameOf(node) + QLatin1Char('\''),
                               node, slantedTurn(static_cast<float>(event + 1))));
    });
    const osg::Quaternion last = slantedTurn(DragEvents);
    history.verify(transform->getRotation() == last &&
                       transform->getEulerRotation().isSame(transform->convertQuatToEuler(last, true)),
                   QStringLiteral("the last turn is set, and its angles"));
    history.undo();
    history.redo();
    verifyCalls(log, {});
}
