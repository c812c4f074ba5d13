// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksSyncFunction.h>
#include <ksundo/transform/ksTransformUndoCommand.h>

#include <OpenSG/OSGVector.h>

#include <QCoreApplication>

#include <functional>

/// @file
/// The commands on the vector values of a transform node. They differ by one row of a table each: the verb,
/// the application's getter and setter, and when the class's sync function is called. Whatever is out of the
/// ordinary, such as a node without a transform, is the getter's and the setter's business.
///
/// Every class has three constructors, of which the second and the third take, before the parent, whether the
/// command may merge or how long its merge window is in seconds.

/// Three components of a transform: lengths in scene units, angles in degrees, or factors.
using ksTransformValue = osg::Vector<float, 3u>;

/// Called after a command has written: with the node's id, the value written, and the index.
using ksTransformCallback = std::function<void(unsigned int, const ksTransformValue &, int)>;

/// For which index a command calls its class's sync function.
enum class ksTransformSync
{
    ownTransform, ///< for -1, the node's own transform, only
    everyIndex    ///< for those of the variants, too
};

/// Mechanics of the commands on one vector value.
///
/// \tparam Command the class, whose static \c row says what is its own
/// \tparam Mode bool when the value is taken in one of two modes, such as world or parent space; nothing
/// otherwise
template <class Command, class... Mode>
class ksTransformValueUndoCommand
    : public ksTransformUndoCommand<ksTransformValue>,
      public ksSyncFunction<Command, void(const osg::NodePtr &, const ksTransformValue &, Mode...)>
{
public:
    /// What is a class's own.
    struct Row
    {
        const char *context; ///< the class's name, under which the verb is translated
        const char *verb;
        ksTransformValue (*get)(const osg::NodePtr &node, Mode... modeFlag, int index);
        void (*set)(const osg::NodePtr &node, float x, float y, float z, Mode... modeFlag, int index);
        ksTransformSync sync;
    };

    ksTransformValueUndoCommand(osg::NodePtr node, ksTransformValue value, Mode... modeFlag,
                                QUndoCommand *parent = nullptr, int index = -1)
        : ksTransformUndoCommand(verb(), node, value, (false || ... || modeFlag), parent, index)
    {}

    ksTransformValueUndoCommand(osg::NodePtr node, ksTransformValue value, Mode... modeFlag,
                                bool mergeEnabled, QUndoCommand *parent = nullptr, int index = -1)
        : ksTransformUndoCommand(verb(), node, value, (false || ... || modeFlag), mergeEnabled, parent, index)
    {}

    ksTransformValueUndoCommand(osg::NodePtr node, ksTransformValue value, Mode... modeFlag,
                                double mergeResponseDelta, QUndoCommand *parent = nullptr, int index = -1)
        : ksTransformUndoCommand(verb(), node, value, (false || ... || modeFlag), mergeResponseDelta, parent,
                                 index)
    {}

    ksTransformValue get(osg::NodePtr node) override
    {
        return Command::row.get(node, Mode(modeFlag)..., index);
    }

    void set(osg::NodePtr node, ksTransformValue value) override
    {
        write(node, value);
        syncAfter(node, value);
    }

protected:
    void write(const osg::NodePtr &node, const ksTransformValue &value) const
    {
        Command::row.set(node, value[0], value[1], value[2], Mode(modeFlag)..., index);
    }

    void syncAfter(const osg::NodePtr &node, const ksTransformValue &value) const
    {
        if (index == -1 || Command::row.sync == ksTransformSync::everyIndex)
            this->sync(node, value, Mode(modeFlag)...);
    }

private:
    static QString verb() { return QCoreApplication::translate(Command::row.context, Command::row.verb); }
};

/// The same, with a callback of each command's own, which comes before the sync function.
template <class Command, class... Mode>
class ksTransformCallbackUndoCommand : public ksTransformValueUndoCommand<Command, Mode...>
{
    using Base = ksTransformValueUndoCommand<Command, Mode...>;

public:
    ksTransformCallbackUndoCommand(osg::NodePtr node, ksTransformValue value, Mode... modeFlag,
                                   QUndoCommand *parent = nullptr, ksTransformCallback callback = {},
                                   int index = -1)
        : Base(node, value, modeFlag..., parent, index)
        , changeCallback(std::move(callback))
    {}

    ksTransformCallbackUndoCommand(osg::NodePtr node, ksTransformValue value, Mode... modeFlag,
                                   bool mergeEnabled, QUndoCommand *parent = nullptr,
                                   ksTransformCallback callback = {}, int index = -1)
        : Base(node, value, modeFlag..., mergeEnabled, parent, index)
        , changeCallback(std::move(callback))
    {}

    ksTransformCallbackUndoCommand(osg::NodePtr node, ksTransformValue value, Mode... modeFlag,
                                   double mergeResponseDelta, QUndoCommand *parent = nullptr,
                                   ksTransformCallback callback = {}, int index = -1)
        : Base(node, value, modeFlag..., mergeResponseDelta, parent, index)
        , changeCallback(std::move(callback))
    {}

    void set(osg::NodePtr node, ksTransformValue value) override
    {
        this->write(node, value);
        if (changeCallback)
            changeCallback(node.getFieldContainerId(), value, this->index);
        this->syncAfter(node, value);
    }

private:
    ksTransformCallback changeCallback;
};

/// Sets a node's translation: in world space when the mode is true, in the parent's space otherwise.
class KSUNDO_EXPORT ksTranslationUndoCommand
    : public ksTransformCallbackUndoCommand<ksTranslationUndoCommand, bool>
{
    KS_UNDO_COMMAND(ksTranslationUndoCommand)

public:
    using ksTransformCallbackUndoCommand::ksTransformCallbackUndoCommand;

    static const Row row;
};

/// Sets a node's rotation: Euler angles in degrees.
class KSUNDO_EXPORT ksRotationUndoCommand : public ksTransformCallbackUndoCommand<ksRotationUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationUndoCommand)

public:
    using ksTransformCallbackUndoCommand::ksTransformCallbackUndoCommand;

    static const Row row;
};

/// Sets a node's scale: a factor for each axis.
class KSUNDO_EXPORT ksScaleUndoCommand : public ksTransformCallbackUndoCommand<ksScaleUndoCommand>
{
    KS_UNDO_COMMAND(ksScaleUndoCommand)

public:
    using ksTransformCallbackUndoCommand::ksTransformCallbackUndoCommand;

    static const Row row;
};

/// Sets the point that a node's scale leaves in place, in world or the parent's space as for the translation.
class KSUNDO_EXPORT ksScalePivotUndoCommand
    : public ksTransformValueUndoCommand<ksScalePivotUndoCommand, bool>
{
    KS_UNDO_COMMAND(ksScalePivotUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;

    static const Row row;
};

/// Sets the point that a node's rotation leaves in place, in world or the parent's space as for the
/// translation.
class KSUNDO_EXPORT ksRotationPivotUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotUndoCommand, bool>
{
    KS_UNDO_COMMAND(ksRotationPivotUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;

    static const Row row;
};

/// Sets the shift that makes up for a moved scale pivot.
class KSUNDO_EXPORT ksScalePivotTranslationUndoCommand
    : public ksTransformValueUndoCommand<ksScalePivotTranslationUndoCommand>
{
    KS_UNDO_COMMAND(ksScalePivotTranslationUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;

    static const Row row;
};

/// Sets the shift that makes up for a moved rotation pivot.
class KSUNDO_EXPORT ksRotationPivotTranslationUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotTranslationUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationPivotTranslationUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;

    static const Row row;
};

/// Sets the orientation of the axes that a node rotates about: Euler angles in degrees.
class KSUNDO_EXPORT ksRotationPivotOrientationUndoCommand
    : public ksTransformValueUndoCommand<ksRotationPivotOrientationUndoCommand>
{
    KS_UNDO_COMMAND(ksRotationPivotOrientationUndoCommand)

public:
    using ksTransformValueUndoCommand::ksTransformValueUndoCommand;

    static const Row row;
};

/// Sets the direction that a node's rotation makes one of its axes point to.
class KSUNDO_EXPORT ksRotationPivotDirectionUndoCommand
    : public ksTransformUndoCommand<ksTransformValue>,
      public ksSyncFunction<ksRotationPivotDirectionUndoCommand,
                            void(const osg::NodePtr &, const ksTransformValue &)>
{
    KS_UNDO_COMMAND(ksRotationPivotDirectionUndoCommand)

public:
    /// \param directionAxis and \param directionFlag which axis, and how, as the application's setter takes
    /// them
    ksRotationPivotDirectionUndoCommand(osg::NodePtr node, ksTransformValue value, int directionAxis,
                                        bool directionFlag, QUndoCommand *parent = nullptr, int index = -1);
    ksRotationPivotDirectionUndoCommand(osg::NodePtr node, ksTransformValue value, int directionAxis,
                                        bool directionFlag, bool mergeEnabled, QUndoCommand *parent = nullptr,
                                        int index = -1);
    ksRotationPivotDirectionUndoCommand(osg::NodePtr node, ksTransformValue value, int directionAxis,
                                        bool directionFlag, double mergeResponseDelta,
                                        QUndoCommand *parent = nullptr, int index = -1);

    ksTransformValue get(osg::NodePtr node) override;
    void set(osg::NodePtr node, ksTransformValue value) override;

private:
    int directionAxis;
    bool directionFlag;
};

/// Sets a node's shear in the planes xy, xz and yz. It always concerns the node's own transform.
class KSUNDO_EXPORT ksShearUndoCommand : public ksTransformValueUndoCommand<ksShearUndoCommand>
{
    KS_UNDO_COMMAND(ksShearUndoCommand)

public:
    ksShearUndoCommand(osg::NodePtr node, ksTransformValue value, QUndoCommand *parent = nullptr);

    static const Row row;
};

extern template class ksSyncFunction<ksTranslationUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &, bool)>;
extern template class ksSyncFunction<ksRotationUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
extern template class ksSyncFunction<ksScaleUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
extern template class ksSyncFunction<ksScalePivotUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &, bool)>;
extern template class ksSyncFunction<ksRotationPivotUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &, bool)>;
extern template class ksSyncFunction<ksScalePivotTranslationUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
extern template class ksSyncFunction<ksRotationPivotTranslationUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
extern template class ksSyncFunction<ksRotationPivotOrientationUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
extern template class ksSyncFunction<ksRotationPivotDirectionUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
extern template class ksSyncFunction<ksShearUndoCommand,
                                     void(const osg::NodePtr &, const ksTransformValue &)>;
