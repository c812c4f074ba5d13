// SPDX-License-Identifier: MIT
#include <ksundo/transform/ksTransformValueUndoCommands.h>

#include <ksNodeUtils.h>

template class ksSyncFunction<ksTranslationUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &, bool)>;
template class ksSyncFunction<ksRotationUndoCommand, void(const osg::NodePtr &, const ksTransformValue &)>;
template class ksSyncFunction<ksScaleUndoCommand, void(const osg::NodePtr &, const ksTransformValue &)>;
template class ksSyncFunction<ksScalePivotUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &, bool)>;
template class ksSyncFunction<ksRotationPivotUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &, bool)>;
template class ksSyncFunction<ksScalePivotTranslationUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &)>;
template class ksSyncFunction<ksRotationPivotTranslationUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &)>;
template class ksSyncFunction<ksRotationPivotOrientationUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &)>;
template class ksSyncFunction<ksRotationPivotDirectionUndoCommand,
                              void(const osg::NodePtr &, const ksTransformValue &)>;
template class ksSyncFunction<ksShearUndoCommand, void(const osg::NodePtr &, const ksTransformValue &)>;

const ksTranslationUndoCommand::Row ksTranslationUndoCommand::row = {
    "ksTranslationUndoCommand",
    QT_TRANSLATE_NOOP("ksTranslationUndoCommand", "Translate"),
    &ksNodeUtils::getTransformNodeTranslation,
    &ksNodeUtils::setTransformNodeTranslation,
    ksTransformSync::ownTransform,
};

const ksRotationUndoCommand::Row ksRotationUndoCommand::row = {
    "ksRotationUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationUndoCommand", "Rotate"),
    &ksNodeUtils::getTransformNodeRotation,
    &ksNodeUtils::setTransformNodeRotation,
    ksTransformSync::ownTransform,
};

const ksScaleUndoCommand::Row ksScaleUndoCommand::row = {
    "ksScaleUndoCommand",
    QT_TRANSLATE_NOOP("ksScaleUndoCommand", "Scale"),
    &ksNodeUtils::getTransformNodeScale,
    &ksNodeUtils::setTransformNodeScale,
    ksTransformSync::ownTransform,
};

const ksScalePivotUndoCommand::Row ksScalePivotUndoCommand::row = {
    "ksScalePivotUndoCommand",
    QT_TRANSLATE_NOOP("ksScalePivotUndoCommand", "Change Scale Pivot"),
    &ksNodeUtils::getTransformNodeScalePivot,
    &ksNodeUtils::setTransformNodeScalePivot,
    ksTransformSync::everyIndex,
};

const ksRotationPivotUndoCommand::Row ksRotationPivotUndoCommand::row = {
    "ksRotationPivotUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationPivotUndoCommand", "Change Rotation Pivot"),
    &ksNodeUtils::getTransformNodeRotatePivot,
    &ksNodeUtils::setTransformNodeRotatePivot,
    ksTransformSync::everyIndex,
};

const ksScalePivotTranslationUndoCommand::Row ksScalePivotTranslationUndoCommand::row = {
    "ksScalePivotTranslationUndoCommand",
    QT_TRANSLATE_NOOP("ksScalePivotTranslationUndoCommand", "Change Scale Pivot Translation"),
    &ksNodeUtils::getTransformNodeScalePivotTranslation,
    &ksNodeUtils::setTransformNodeScalePivotTranslation,
    ksTransformSync::everyIndex,
};

const ksRotationPivotTranslationUndoCommand::Row ksRotationPivotTranslationUndoCommand::row = {
    "ksRotationPivotTranslationUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationPivotTranslationUndoCommand", "Change Rotation Pivot Translation"),
    &ksNodeUtils::getTransformNodeRotatePivotTranslation,
    &ksNodeUtils::setTransformNodeRotatePivotTranslation,
    ksTransformSync::everyIndex,
};

const ksRotationPivotOrientationUndoCommand::Row ksRotationPivotOrientationUndoCommand::row = {
    "ksRotationPivotOrientationUndoCommand",
    QT_TRANSLATE_NOOP("ksRotationPivotOrientationUndoCommand", "Change Rotation Pivot"),
    &ksNodeUtils::getTransformNodeRotationOrientation,
    &ksNodeUtils::setTransformNodeRotationOrientation,
    ksTransformSync::ownTransform,
};

const ksShearUndoCommand::Row ksShearUndoCommand::row = {
    "ksShearUndoCommand",
    QT_TRANSLATE_NOOP("ksShearUndoCommand", "Shear"),
    [](const osg::NodePtr &node, int) { return ksNodeUtils::getTransformNodeShear(node); },
    [](const osg::NodePtr &node, float x, float y, float z, int) {
        ksNodeUtils::setTransformNodeShear(node, x, y, z);
    },
    ksTransformSync::ownTransform,
};

ksShearUndoCommand::ksShearUndoCommand(osg::NodePtr node, ksTransformValue value, QUndoCommand *parent)
    : ksTransformValueUndoCommand(node, value, parent)
{}

namespace {

QString directionVerb()
{
    return QCoreApplication::translate("ksRotationPivotDirectionUndoCommand", "Change Rotation Pivot");
}

} // namespace

ksRotationPivotDirectionUndoCommand::ksRotationPivotDirectionUndoCommand(osg::NodePtr node,
                                                                         ksTransformValue value,
                                                                         int directionAxis,
                                                                         bool directionFlag,
                                                                         QUndoCommand *parent, int index)
    : ksTransformUndoCommand(directionVerb(), node, value, false, parent, index)
    , directionAxis(directionAxis)
    , directionFlag(directionFlag)
{}

ksRotationPivotDirectionUndoCommand::ksRotationPivotDirectionUndoCommand(
    osg::NodePtr node, ksTransformValue value, int directionAxis, bool directionFlag, bool mergeEnabled,
    QUndoCommand *parent, int index)
    : ksTransformUndoCommand(directionVerb(), node, value, false, mergeEnabled, parent, index)
    , directionAxis(directionAxis)
    , directionFlag(directionFlag)
{}

ksRotationPivotDirectionUndoCommand::ksRotationPivotDirectionUndoCommand(
    osg::NodePtr node, ksTransformValue value, int directionAxis, bool directionFlag,
    double mergeResponseDelta, QUndoCommand *parent, int index)
    : ksTransformUndoCommand(directionVerb(), node, value, false, mergeResponseDelta, parent, index)
    , directionAxis(directionAxis)
    , directionFlag(directionFlag)
{}

ksTransformValue ksRotationPivotDirectionUndoCommand::get(osg::NodePtr node)
{
    return ksNodeUtils::getTransformNodeRotationDirection(node, index, -1);
}

void ksRotationPivotDirectionUndoCommand::set(osg::NodePtr node, ksTransformValue value)
{
    ksNodeUtils::setTransformNodeRotationDirection(node, value[0], value[1], value[2], directionAxis,
                                                   directionFlag, index);
    if (index == -1)
        sync(node, value);
}
