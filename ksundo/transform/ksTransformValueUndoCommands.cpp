// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksSync.h>
#include <ksundo/transform/ksTransformValueUndoCommands.h>

#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <cstddef>

namespace {

/// For which index a command calls its class's sync function.
enum class SyncFor
{
    ownTransform, ///< for -1, the node's own transform, only
    everyIndex    ///< for those of the variants, too
};

/// What is a class's own.
template <class... Mode>
struct Row
{
    const char *context; ///< the class's name, under which the verb is translated
    const char *verb;
    osg::Vec3f (*get)(const osg::NodePtr &node, Mode... modeFlag, int index);
    void (*set)(const osg::NodePtr &node, float x, float y, float z, Mode... modeFlag, int index);
    SyncFor sync;
};

template <class Command>
constexpr std::nullptr_t row = nullptr;

template <>
constexpr Row<bool> row<ksTranslationUndoCommand> = {
    "ksTranslationUndoCommand", QT_TRANSLATE_NOOP("ksTranslationUndoCommand", "Translate"),
    &ksNodeUtils::getTransformNodeTranslation, &ksNodeUtils::setTransformNodeTranslation,
    SyncFor::ownTransform};

template <>
constexpr Row<> row<ksRotationUndoCommand> = {
    "ksRotationUndoCommand", QT_TRANSLATE_NOOP("ksRotationUndoCommand", "Rotate"),
    &ksNodeUtils::getTransformNodeRotation, &ksNodeUtils::setTransformNodeRotation, SyncFor::ownTransform};

template <>
constexpr Row<> row<ksScaleUndoCommand> = {
    "ksScaleUndoCommand", QT_TRANSLATE_NOOP("ksScaleUndoCommand", "Scale"),
    &ksNodeUtils::getTransformNodeScale, &ksNodeUtils::setTransformNodeScale, SyncFor::ownTransform};

template <>
constexpr Row<bool> row<ksScalePivotUndoCommand> = {
    "ksScalePivotUndoCommand", QT_TRANSLATE_NOOP("ksScalePivotUndoCommand", "Change Scale Pivot"),
    &ksNodeUtils::getTransformNodeScalePivot, &ksNodeUtils::setTransformNodeScalePivot, SyncFor::everyIndex};

template <>
constexpr Row<bool> row<ksRotationPivotUndoCommand> = {
    "ksRotationPivotUndoCommand", QT_TRANSLATE_NOOP("ksRotationPivotUndoCommand", "Change Rotation Pivot"),
    &ksNodeUtils::getTransformNodeRotatePivot, &ksNodeUtils::setTransformNodeRotatePivot,
    SyncFor::everyIndex};

template <>
constexpr Row<> row<ksScalePivotTranslationUndoCommand> = {
    "ksScalePivotTranslationUndoCommand",
    QT_TRANSLATE_NOOP("ksScalePivotTranslationUndoCommand", "Change Scale Pivot Translation"),
    &ksNodeUtils::getTransformNodeScalePivotTranslation, &ksNodeUtils::setTransformNodeScalePivotTranslation,
    SyncFor::everyIndex};

template <>
constexpr Row<> row<ksRotationPivotTranslationUndoCommand> = {
    "ksRotationPivotTranslationUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationPivotTranslationUndoCommand", "Change Rotation Pivot Translation"),
    &ksNodeUtils::getTransformNodeRotatePivotTranslation,
    &ksNodeUtils::setTransformNodeRotatePivotTranslation, SyncFor::everyIndex};

template <>
constexpr Row<> row<ksRotationPivotOrientationUndoCommand> = {
    "ksRotationPivotOrientationUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationPivotOrientationUndoCommand", "Change Rotation Pivot"),
    &ksNodeUtils::getTransformNodeRotationOrientation, &ksNodeUtils::setTransformNodeRotationOrientation,
    SyncFor::ownTransform};

template <>
constexpr Row<> row<ksRotationPivotDirectionUndoCommand> = {
    "ksRotationPivotDirectionUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationPivotDirectionUndoCommand", "Change Rotation Pivot"),
    [](const osg::NodePtr &node, int index) -> osg::Vec3f {
        return ksNodeUtils::getTransformNodeRotationDirection(node, index, -1);
    },
    nullptr, // the class writes more than the value
    SyncFor::ownTransform};

template <>
constexpr Row<> row<ksShearUndoCommand> = {
    "ksShearUndoCommand", QT_TRANSLATE_NOOP("ksShearUndoCommand", "Shear"),
    [](const osg::NodePtr &node, int) -> osg::Vec3f { return ksNodeUtils::getTransformNodeShear(node); },
    [](const osg::NodePtr &node, float x, float y, float z, int) {
        ksNodeUtils::setTransformNodeShear(node, x, y, z);
    },
    SyncFor::ownTransform};

} // namespace

template <class Command, class... Mode>
typename ksTransformValueUndoCommand<Command, Mode...>::SyncFunction
    ksTransformValueUndoCommand<Command, Mode...>::s_sync;

template <class Command, class... Mode>
ksTransformValueUndoCommand<Command, Mode...>::ksTransformValueUndoCommand(osg::NodePtr node,
                                                                           osg::Vec3f value, Mode... modeFlag,
                                                                           ksMergeOption merging,
                                                                           QUndoCommand *parent, int index)
    : ksTransformUndoCommand(QCoreApplication::translate(row<Command>.context, row<Command>.verb), node,
                             value, (false || ... || modeFlag), merging, parent, index)
{}

template <class Command, class... Mode>
osg::Vec3f ksTransformValueUndoCommand<Command, Mode...>::get(osg::NodePtr node)
{
    return row<Command>.get(node, Mode(modeFlag)..., index);
}

template <class Command, class... Mode>
void ksTransformValueUndoCommand<Command, Mode...>::write(const osg::NodePtr &node,
                                                          const osg::Vec3f &value) const
{
    row<Command>.set(node, value[0], value[1], value[2], Mode(modeFlag)..., index);
}

template <class Command, class... Mode>
void ksTransformValueUndoCommand<Command, Mode...>::syncAfter(osg::UInt32 id, const osg::Vec3f &value) const
{
    if (s_sync && (index == -1 || row<Command>.sync == SyncFor::everyIndex))
        ksDetail::ksSync(s_sync, id, value, Mode(modeFlag)...);
}

template class ksTransformValueUndoCommand<ksTranslationUndoCommand, bool>;
template class ksTransformValueUndoCommand<ksRotationUndoCommand>;
template class ksTransformValueUndoCommand<ksScaleUndoCommand>;
template class ksTransformValueUndoCommand<ksScalePivotUndoCommand, bool>;
template class ksTransformValueUndoCommand<ksRotationPivotUndoCommand, bool>;
template class ksTransformValueUndoCommand<ksScalePivotTranslationUndoCommand>;
template class ksTransformValueUndoCommand<ksRotationPivotTranslationUndoCommand>;
template class ksTransformValueUndoCommand<ksRotationPivotOrientationUndoCommand>;
template class ksTransformValueUndoCommand<ksRotationPivotDirectionUndoCommand>;
template class ksTransformValueUndoCommand<ksShearUndoCommand>;

void ksRotationPivotDirectionUndoCommand::set(osg::NodePtr node, osg::Vec3f value)
{
    const osg::UInt32 id = ksPlatform::idOf(node);
    ksNodeUtils::setTransformNodeRotationDirection(node, value[0], value[1], value[2], directionAxis,
                                                   directionFlag, index);
    syncAfter(id, value);
}
