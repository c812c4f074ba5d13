// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksSyncHook.h>
#include <ksundo/transform/ksTransformUndoCommand.h>

#include <OpenSG/OSGVector.h>
#include <ksPlatform.h>

#include <functional>

/// @file
/// The commands on the vector values of a transform node. They differ by the verb, the application's getter
/// and setter, and when the class's sync function is called: each class says for which index.
///
/// Every class but the shear has two constructors, of which the second takes, before the parent, a
/// ksMergeOption: whether the command may merge, or its merge window in seconds. The parameters are
///  - the node, which may be null, and the value to set when the command is run, and not before;
///  - for translation and pivots the mode: true for world space, false for that of the parent;
///  - the parent command, or null;
///  - for translation, rotation and scale the change callback, which may be empty;
///  - the index of the transform: -1 for the node's own, from 0 on for that of the variant which stands there
///    when a step is done, be it another one than before.
///
/// A node that has gone makes a step a silent no-op; of a node without such a transform the application's
/// getters make zeros, and its setters nothing, but callback and sync function are called all the same. So
/// they are in world space below ancestors whose matrices have no inverse, where nothing can be written.

/// Called after a command has written: with the node's id, the value written, and the index.
using ksTransformCallback = std::function<void(unsigned int, const osg::Vec3f &, int)>;

/// Mechanics of the commands on one vector value.
///
/// \tparam Command the class
/// \tparam Mode bool when the value is taken in one of two modes; nothing otherwise
template <class Command, class... Mode>
class KSUNDO_EXPORT ksTransformValueUndoCommand : public ksTransformUndoCommand<osg::Vec3f>
{
    KS_SYNC_HOOK(void(const osg::NodePtr &, const osg::Vec3f &, Mode...))

    static_assert(sizeof...(Mode) <= 1 && (std::is_same_v<Mode, bool> && ...), "there is one mode at most");

public:
    /// The parameters are those of the family.
    ksTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value, Mode... modeFlag,
                                QUndoCommand *parent = nullptr, int index = -1)
        : ksTransformValueUndoCommand(node, value, modeFlag..., ksMergeOption(), parent, index)
    {}

    /// The same, with what it is told about merging.
    ksTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value, Mode... modeFlag, ksMergeOption merging,
                                QUndoCommand *parent = nullptr, int index = -1);

    /// Asks the application's getter.
    osg::Vec3f get(osg::NodePtr node) override;

    /// Writes the value, then calls the sync function.
    void set(osg::NodePtr node, osg::Vec3f value) override
    {
        const osg::UInt32 id = ksPlatform::idOf(node);
        write(node, value);
        syncAfter(id, value);
    }

protected:
    /// Calls the application's setter, which ends the edit.
    void write(const osg::NodePtr &node, const osg::Vec3f &value) const;

    /// Calls the sync function with the node \a id, if that is still there and the index is one for which the
    /// class syncs.
    void syncAfter(osg::UInt32 id, const osg::Vec3f &value) const;
};

/// The same, with a callback of each command's own.
template <class Command, class... Mode>
class ksTransformCallbackUndoCommand : public ksTransformValueUndoCommand<Command, Mode...>
{
    using Base = ksTransformValueUndoCommand<Command, Mode...>;

public:
    /// The parameters are those of the family.
    ksTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value, Mode... modeFlag,
                                   QUndoCommand *parent = nullptr, ksTransformCallback callback = {},
                                   int index = -1)
        : ksTransformCallbackUndoCommand(node, value, modeFlag..., ksMergeOption(), parent,
                                         std::move(callback), index)
    {}

    /// The same, with what it is told about merging.
    ksTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value, Mode... modeFlag,
                                   ksMergeOption merging, QUndoCommand *parent = nullptr,
                                   ksTransformCallback callback = {}, int index = -1)
        : Base(node, value, modeFlag..., merging, parent, index)
        , changeCallback(std::move(callback))
    {}

    /// Writes the value, then calls the callback and the sync function.
    void set(osg::NodePtr node, osg::Vec3f value) override
    {
        const osg::UInt32 id = ksPlatform::idOf(node);
        this->write(node, value);
        if (changeCallback)
            changeCallback(id, value, this->index);
        this->syncAfter(id, value);
    }

private:
    ksTransformCallback changeCallback;
};

/// Sets a node's translation, in scene units: "Translate". Syncs for index -1.
class KSUNDO_EXPORT ksTranslationUndoCommand
    : public ksTransformCallbackUndoCommand<ksTranslationUndoCommand, bool>
{
    KS_UNDO_COMMAND(ksTranslationUndoCommand)

public:
    using ksTransformCallbackUndoCommand::ksTransformCallbackUndoCommand;
};

/// Sets a node's rotation, Euler angles in degrees: "Rotate". Syncs for index -1.
class KSUNDO_EXPORT ksRotationUndoCommand : public ksTransformCallbackUndoCommand<ksRotationUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationUndoCommand)

public:
    using ksTransformCallbackUndoCommand::ksTransformCallbackUndoCommand;
};

/// Sets a node's scale, a factor for each axis: "Scale". Syncs for index -1.
class KSUNDO_EXPORT ksScaleUndoCommand : public ksTransformCallbackUndoCommand<ksScaleUndoCommand>
{
    KS_UNDO_COMMAND(ksScaleUndoCommand)

public:
    using ksTransformCallbackUndoCommand::ksTransformCallbackUndoCommand;
};

/// Sets the point that a node's scale leaves in place, in scene units: "Change Scale Pivot". Syncs for every
/// index.
class KSUNDO_EXPORT ksScalePivotUndoCommand
    : public ksTransformValueUndoCommand<ksScalePivotUndoCommand, bool>
{
    KS_UNDO_COMMAND(ksScalePivotUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;
};

/// Sets the point that a node's rotation leaves in place, in scene units: "Change Rotation Pivot". Syncs for
/// every index.
class KSUNDO_EXPORT ksRotationPivotUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotUndoCommand, bool>
{
    KS_UNDO_COMMAND(ksRotationPivotUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;
};

/// Sets the shift that makes up for a moved scale pivot, in scene units: "Change Scale Pivot Translation".
/// Syncs for every index.
class KSUNDO_EXPORT ksScalePivotTranslationUndoCommand
    : public ksTransformValueUndoCommand<ksScalePivotTranslationUndoCommand>
{
    KS_UNDO_COMMAND(ksScalePivotTranslationUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;
};

/// Sets the shift that makes up for a moved rotation pivot, in scene units: "Change Rotation Pivot
/// Translation". Syncs for every index.
class KSUNDO_EXPORT ksRotationPivotTranslationUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotTranslationUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationPivotTranslationUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;
};

/// Sets the orientation of the axes that a node rotates about, Euler angles in degrees: "Change Rotation
/// Pivot". Syncs for index -1.
class KSUNDO_EXPORT ksRotationPivotOrientationUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotOrientationUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationPivotOrientationUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;
};

/// Sets the direction, a vector of any length, that a node's rotation makes one of its axes point to: "Change
/// Rotation Pivot". Syncs for index -1.
class KSUNDO_EXPORT ksRotationPivotDirectionUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotDirectionUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationPivotDirectionUndoCommand)

public:
    /// \a directionAxis tells which axis: 0, 1 or 2 for x, y or z; any other is kept and has no effect.
    /// \a directionFlag tells whether the axis is made to point there at all.
    ksRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionAxis,
                                        bool directionFlag, QUndoCommand *parent = nullptr, int index = -1)
        : ksRotationPivotDirectionUndoCommand(node, value, directionAxis, directionFlag, ksMergeOption(),
                                              parent, index)
    {}

    /// The same, with what it is told about merging.
    ksRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionAxis,
                                        bool directionFlag, ksMergeOption merging,
                                        QUndoCommand *parent = nullptr, int index = -1)
        : ksTransformValueUndoCommand(node, value, merging, parent, index)
        , directionAxis(directionAxis)
        , directionFlag(directionFlag)
    {}

    /// Writes the direction with axis and flag, neither of which undo brings back, then syncs.
    void set(osg::NodePtr node, osg::Vec3f value) override;

private:
    int directionAxis;
    bool directionFlag;
};

/// Sets a node's shear in the planes xy, xz and yz, a factor for each: "Shear". It always concerns the node's
/// own transform and syncs.
class KSUNDO_EXPORT ksShearUndoCommand : public ksTransformValueUndoCommand<ksShearUndoCommand>
{
    KS_UNDO_COMMAND(ksShearUndoCommand)

public:
    /// The parameters are those of the family, less the index.
    ksShearUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand *parent = nullptr)
        : ksTransformValueUndoCommand(node, value, parent)
    {}
};

extern template class ksTransformValueUndoCommand<ksTranslationUndoCommand, bool>;
extern template class ksTransformValueUndoCommand<ksRotationUndoCommand>;
extern template class ksTransformValueUndoCommand<ksScaleUndoCommand>;
extern template class ksTransformValueUndoCommand<ksScalePivotUndoCommand, bool>;
extern template class ksTransformValueUndoCommand<ksRotationPivotUndoCommand, bool>;
extern template class ksTransformValueUndoCommand<ksScalePivotTranslationUndoCommand>;
extern template class ksTransformValueUndoCommand<ksRotationPivotTranslationUndoCommand>;
extern template class ksTransformValueUndoCommand<ksRotationPivotOrientationUndoCommand>;
extern template class ksTransformValueUndoCommand<ksRotationPivotDirectionUndoCommand>;
extern template class ksTransformValueUndoCommand<ksShearUndoCommand>;
