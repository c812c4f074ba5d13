// SPDX-License-Identifier: MIT
#pragma once

#include "ksMergeForm.h"

#include <ksundo/transform/ksTransformValueUndoCommands.h>

#include <ksNodeUtils.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// How to build a command, apart from its node and its value.
struct ksTransformValueForm
{
    bool mode = false;
    int index = -1;
    ksMergeForm merge = {};
    ksTransformCallback callback = {};
    QUndoCommand *parent = nullptr;
};

/// What the ten commands on vector values are required to be, one row per class.
struct ksTransformValueRow
{
    using Command = ksTransformUndoCommand<osg::Vec3f>;

    /// A sync function: its last argument is the mode as a text, - for the classes that pass none.
    using Sync = std::function<void(const osg::NodePtr &, const osg::Vec3f &, const std::string &)>;

    const char *className;
    const char *verb;
    bool hasMode;
    bool hasCallback;
    bool hasIndex;
    bool syncsEveryIndex;
    /// What an edit names.
    osg::BitVector mask;
    /// The application's getter.
    osg::Vec3f (*read)(const osg::NodePtr &node, bool mode, int index);
    Command *(*make)(const osg::NodePtr &node, const osg::Vec3f &value, const ksTransformValueForm &form);
    void (*setSync)(const Sync &sync);

    std::vector<int> indexes() const { return hasIndex ? std::vector<int>{-1, 0, 2} : std::vector<int>{-1}; }
    /// Without a word on merging, with the switch on and off, with a window, and without a limit; the shear
    /// command takes none of these.
    std::vector<ksMergeForm> mergeForms() const
    {
        return hasIndex ? std::vector<ksMergeForm>{{}, true, false, 2.0, -1.0} : std::vector<ksMergeForm>{{}};
    }
    std::vector<bool> modes() const
    {
        return hasMode ? std::vector<bool>{false, true} : std::vector<bool>{false};
    }

    friend std::ostream &operator<<(std::ostream &stream, const ksTransformValueRow &row)
    {
        return stream << row.className;
    }

    /// The axis and the flag of every rotation pivot direction command.
    static constexpr int directionAxis = 2;
    static constexpr bool directionFlag = true;
};

namespace ksTransformValueRows {

using Row = ksTransformValueRow;
using Form = ksTransformValueForm;
using Value = osg::Vec3f;
using osg::NodePtr;
using osg::Transform3D;

template <class Command>
Row::Command *plain(const NodePtr &node, const Value &value, const Form &form)
{
    return ksBuilderOf<Command>(form.merge, node, value)(form.parent, form.index);
}

template <class Command>
Row::Command *withMode(const NodePtr &node, const Value &value, const Form &form)
{
    return ksBuilderOf<Command>(form.merge, node, value, form.mode)(form.parent, form.index);
}

template <class Command>
Row::Command *withCallback(const NodePtr &node, const Value &value, const Form &form)
{
    return ksBuilderOf<Command>(form.merge, node, value)(form.parent, form.callback, form.index);
}

inline Row::Command *translation(const NodePtr &node, const Value &value, const Form &form)
{
    return ksBuilderOf<ksTranslationUndoCommand>(form.merge, node, value,
                                                 form.mode)(form.parent, form.callback, form.index);
}

inline Row::Command *direction(const NodePtr &node, const Value &value, const Form &form)
{
    return ksBuilderOf<ksRotationPivotDirectionUndoCommand>(form.merge, node, value, Row::directionAxis,
                                                            Row::directionFlag)(form.parent, form.index);
}

/// The shear command has one constructor only.
inline Row::Command *shear(const NodePtr &node, const Value &value, const Form &form)
{
    return new ksShearUndoCommand(node, value, form.parent);
}

template <class Command>
void setSync(const Row::Sync &sync)
{
    if (!sync)
        return Command::setSyncFunction({});
    Command::setSyncFunction([sync](const NodePtr &node, const Value &value, auto... mode) {
        std::string text = "-";
        ((text = mode ? "true" : "false"), ...);
        sync(node, value, text);
    });
}

/// A getter without a mode.
template <osg::Vec3f (*get)(const NodePtr &, int)>
Value read(const NodePtr &node, bool, int index)
{
    return get(node, index);
}

inline Value readDirection(const NodePtr &node, bool, int index)
{
    return ksNodeUtils::getTransformNodeRotationDirection(node, index, -1);
}

inline Value readShear(const NodePtr &node, bool, int)
{
    return ksNodeUtils::getTransformNodeShear(node);
}

inline const std::vector<Row> all = {
    {"ksTranslationUndoCommand", "Translate", true, true, true, false, Transform3D::TranslationFieldMask,
     &ksNodeUtils::getTransformNodeTranslation, &translation, &setSync<ksTranslationUndoCommand>},
    {"ksRotationUndoCommand", "Rotate", false, true, true, false,
     Transform3D::RotationFieldMask | Transform3D::EulerRotationFieldMask,
     &read<&ksNodeUtils::getTransformNodeRotation>, &withCallback<ksRotationUndoCommand>,
     &setSync<ksRotationUndoCommand>},
    {"ksScaleUndoCommand", "Scale", false, true, true, false, Transform3D::ScaleFieldMask,
     &read<&ksNodeUtils::getTransformNodeScale>, &withCallback<ksScaleUndoCommand>,
     &setSync<ksScaleUndoCommand>},
    {"ksScalePivotUndoCommand", "Change Scale Pivot", true, false, true, true,
     Transform3D::ScalePivotFieldMask, &ksNodeUtils::getTransformNodeScalePivot,
     &withMode<ksScalePivotUndoCommand>, &setSync<ksScalePivotUndoCommand>},
    {"ksRotationPivotUndoCommand", "Change Rotation Pivot", true, false, true, true,
     Transform3D::RotatePivotFieldMask, &ksNodeUtils::getTransformNodeRotatePivot,
     &withMode<ksRotationPivotUndoCommand>, &setSync<ksRotationPivotUndoCommand>},
    {"ksScalePivotTranslationUndoCommand", "Change Scale Pivot Translation", false, false, true, true,
     Transform3D::ScalePivotTranslationFieldMask, &read<&ksNodeUtils::getTransformNodeScalePivotTranslation>,
     &plain<ksScalePivotTranslationUndoCommand>, &setSync<ksScalePivotTranslationUndoCommand>},
    {"ksRotationPivotTranslationUndoCommand", "Change Rotation Pivot Translation", false, false, true, true,
     Transform3D::RotatePivotTranslationFieldMask,
     &read<&ksNodeUtils::getTransformNodeRotatePivotTranslation>,
     &plain<ksRotationPivotTranslationUndoCommand>, &setSync<ksRotationPivotTranslationUndoCommand>},
    {"ksRotationPivotOrientationUndoCommand", "Change Rotation Pivot", false, false, true, false,
     Transform3D::RotationOrientationFieldMask, &read<&ksNodeUtils::getTransformNodeRotationOrientation>,
     &plain<ksRotationPivotOrientationUndoCommand>, &setSync<ksRotationPivotOrientationUndoCommand>},
    {"ksRotationPivotDirectionUndoCommand", "Change Rotation Pivot", false, false, true, false,
     Transform3D::RotationDirectionFieldMask | Transform3D::RotationDirectionModeFieldMask |
         Transform3D::RotationDirectionOnFieldMask,
     &readDirection, &direction, &setSync<ksRotationPivotDirectionUndoCommand>},
    {"ksShearUndoCommand", "Shear", false, false, false, true, Transform3D::ShearFieldMask, &readShear,
     &shear, &setSync<ksShearUndoCommand>},
};

/// The row of the class \a className.
inline const Row &of(const std::string &className)
{
    return *std::find_if(all.begin(), all.end(), [&](const Row &row) { return className == row.className; });
}

} // namespace ksTransformValueRows
